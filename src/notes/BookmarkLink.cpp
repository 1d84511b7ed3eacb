#include "BookmarkLink.h"

#include "library/TextEncoding.h"

#include <QByteArray>
#include <QStringList>

const QString BookmarkLink::Scheme = QStringLiteral("x-velloxBookmarkNote:");
const QString BookmarkLink::Separator = QStringLiteral("VelloxImportSeperator");

namespace {

constexpr int kAscii = 1;
constexpr int kLatin1 = 5;
constexpr int kLatin2 = 9;

// The scheme is looked for only in this many leading units of the first field, fewer than
// the scheme has: the whole field, scheme included, is then compared with the encoding
// names, so in practice every link is read as UTF-8 first. Older bookmarklets rely on that.
constexpr qsizetype kNameWindow = 14;

int encodingNamed(QString field)
{
    const QString window = field.left(kNameWindow);
    if (window.contains(BookmarkLink::Scheme))
        field = QString(window).remove(BookmarkLink::Scheme) + field.mid(kNameWindow);
    const struct
    {
        const char *name;
        int number;
    } names[] = {{"iso-8859-1", kLatin1},
                 {"ISO-8859-2", kLatin2},
                 {"utf-8", TextEncoding::UTF8},
                 {"ASCII", kAscii}};
    for (const auto &entry : names) {
        if (field.compare(QLatin1String(entry.name), Qt::CaseInsensitive) == 0)
            return entry.number;
    }
    return TextEncoding::UTF8;
}

bool decodeBytes(const QByteArray &bytes, int encoding, QString *out)
{
    if (encoding == kLatin1) {
        out->append(QString::fromLatin1(bytes));
        return true;
    }
    QString decoded;
    if (!TextEncoding::decode(bytes, encoding, &decoded))
        return false;
    out->append(decoded);
    return true;
}

int hexValue(QChar c)
{
    const char16_t u = c.unicode();
    if (u >= '0' && u <= '9')
        return u - '0';
    if (u >= 'a' && u <= 'f')
        return u - 'a' + 10;
    if (u >= 'A' && u <= 'F')
        return u - 'A' + 10;
    return -1;
}

// Each run of escapes is one byte sequence in the encoding; a "%" without two hex digits
// after it, or bytes the encoding does not allow, make the whole field undecodable.
bool percentDecode(const QString &field, int encoding, QString *out)
{
    out->clear();
    out->reserve(field.size());
    QByteArray run;
    const qsizetype n = field.size();
    for (qsizetype i = 0; i < n; ++i) {
        if (field.at(i) != QLatin1Char('%')) {
            if (!run.isEmpty()) {
                if (!decodeBytes(run, encoding, out))
                    return false;
                run.clear();
            }
            out->append(field.at(i));
            continue;
        }
        if (i + 2 >= n)
            return false;
        const int high = hexValue(field.at(i + 1));
        const int low = hexValue(field.at(i + 2));
        if (high < 0 || low < 0)
            return false;
        run.append(char(high * 16 + low));
        i += 2;
    }
    return run.isEmpty() || decodeBytes(run, encoding, out);
}

} // namespace

bool BookmarkLink::hasScheme(const QString &link)
{
    return link.startsWith(Scheme, Qt::CaseInsensitive);
}

BookmarkLink BookmarkLink::parse(const QString &link)
{
    BookmarkLink result;
    if (!hasScheme(link))
        return result;
    result.m_status = Status::MissingFields;
    const QStringList fields = link.split(Separator);
    if (fields.size() < 4 || fields.at(0).size() < kNameWindow)
        return result;

    const int encoding = encodingNamed(fields.at(0));
    QString address;
    QString text;
    if (!percentDecode(fields.at(3), encoding, &text)) {
        if (!percentDecode(fields.at(3), kLatin1, &text)) {
            result.m_status = Status::Undecodable;
            return result;
        }
        if (!percentDecode(fields.at(2), kLatin1, &address))
            address = fields.at(2);
    } else if (!percentDecode(fields.at(2), encoding, &address) &&
               !percentDecode(fields.at(2), kLatin1, &address)) {
        // A broken address is kept as it came rather than dropped with the note.
        address = fields.at(2);
    }

    // Escapes in JavaScript's old escape() form that survived as text.
    const struct
    {
        const char *escape;
        char16_t replacement;
    } quotes[] = {{"%u2018", u'\u2019'},
                  {"%u2019", u'\''},
                  {"%u201D", u'\u201D'},
                  {"%u201C", u'\u201C'},
                  {"%u2026", u'\u2026'}};
    for (const auto &quote : quotes)
        text.replace(QLatin1String(quote.escape), QString(QChar(quote.replacement)),
                     Qt::CaseInsensitive);

    result.m_status = Status::Ok;
    result.m_address = address;
    result.m_text = text;
    return result;
}
