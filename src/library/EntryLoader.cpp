#include "EntryLoader.h"

#include "FileStatus.h"
#include "TextEncoding.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {

QString systemError(int code)
{
    return QString::fromLocal8Bit(std::strerror(code));
}

// Reads the whole file through one descriptor; the stamp is taken before the bytes, so a
// write that lands during the read makes the stamp older than the text, never newer.
bool readFile(const QString &path, QByteArray *bytes, FileStamp *stamp, QString *error)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        *error = systemError(errno);
        return false;
    }
    const FileStatus status = FileStatus::ofDescriptor(fd);
    *stamp = FileStamp::of(status);
    QByteArray data;
    data.reserve(qsizetype(qMax<qint64>(status.size, 0)) + 1);
    char buffer[65536];
    for (;;) {
        const ssize_t got = ::read(fd, buffer, sizeof buffer);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0) {
            *error = systemError(errno);
            ::close(fd);
            return false;
        }
        if (got == 0)
            break;
        data.append(buffer, qsizetype(got));
    }
    ::close(fd);
    *bytes = data;
    return true;
}

struct Mark
{
    const char *bytes;
    int length;
    int encoding;
};

// UTF-32LE before UTF-16LE: its mark begins with the UTF-16LE one.
constexpr Mark kMarks[] = {{"\xFF\xFE\x00\x00", 4, TextEncoding::UTF32LE},
                           {"\x00\x00\xFE\xFF", 4, TextEncoding::UTF32BE},
                           {"\xFF\xFE", 2, TextEncoding::UTF16LE},
                           {"\xFE\xFF", 2, TextEncoding::UTF16BE}};

// Text a person wrote holds no NULs or other C0 controls besides the usual white space, and
// no non-characters; a wrong guess of a wide encoding nearly always produces some.
bool looksWritten(const QString &text)
{
    for (const QChar c : text) {
        const char16_t u = c.unicode();
        if ((u < 0x20 && u != '\t' && u != '\n' && u != '\r' && u != '\f') || u == 0xFFFE ||
            u == 0xFFFF)
            return false;
    }
    return true;
}

int wideNumber(const QByteArray &charset)
{
    const QByteArray name = charset.toUpper();
    return name == "UTF-16LE"   ? TextEncoding::UTF16LE
           : name == "UTF-16BE" ? TextEncoding::UTF16BE
           : name == "UTF-32LE" ? TextEncoding::UTF32LE
           : name == "UTF-32BE" ? TextEncoding::UTF32BE
                                : 0;
}

// UTF-16 and UTF-32 without a mark, ICU's guesses first. Only files holding NUL bytes are
// considered (no 8-bit or UTF-8 text has them), and the NULs must fall where that encoding
// puts the zero high bytes of Latin characters: in every UTF-32 unit; in UTF-16, on one side
// only and in at least one unit of sixteen. ICU alone names UTF-16 for a single stray NUL in
// UTF-8 text. (UTF-16 text with hardly any Latin letters, spaces or line breaks and no mark
// is left to the other rules.)
QList<int> wideCandidates(const QByteArray &bytes)
{
    QList<int> result;
    if (!bytes.contains('\0'))
        return result;
    QList<int> named;
    for (const QByteArray &charset : TextEncoding::detectCharsets(bytes))
        if (const int number = wideNumber(charset))
            named << number;
    qsizetype zeros[4] = {0, 0, 0, 0};
    for (qsizetype i = 0; i < bytes.size(); ++i)
        if (bytes.at(i) == '\0')
            ++zeros[i % 4];
    QList<int> plausible;
    const qsizetype units32 = bytes.size() / 4;
    if (bytes.size() % 4 == 0) {
        if (zeros[3] == units32)
            plausible << TextEncoding::UTF32LE;
        if (zeros[0] == units32)
            plausible << TextEncoding::UTF32BE;
    }
    if (bytes.size() % 2 == 0) {
        const qsizetype units16 = bytes.size() / 2;
        const qsizetype even = zeros[0] + zeros[2];
        const qsizetype odd = zeros[1] + zeros[3];
        if (odd > 0 && even * 4 <= odd && odd * 16 >= units16)
            plausible << TextEncoding::UTF16LE;
        if (even > 0 && odd * 4 <= even && even * 16 >= units16)
            plausible << TextEncoding::UTF16BE;
    }
    for (const int number : std::as_const(named))
        if (plausible.contains(number) && !result.contains(number))
            result << number;
    for (const int number : std::as_const(plausible))
        if (!result.contains(number))
            result << number;
    return result;
}

bool hasC1Bytes(const QByteArray &bytes)
{
    for (const char c : bytes)
        if (static_cast<unsigned char>(c) >= 0x80 && static_cast<unsigned char>(c) < 0xA0)
            return true;
    return false;
}

bool hasControlBytes(const QByteArray &bytes)
{
    for (const char c : bytes) {
        const auto b = static_cast<unsigned char>(c);
        if (b < 0x20 && b != '\t' && b != '\n' && b != '\r' && b != '\f')
            return true;
    }
    return false;
}

// ICU's 8-bit candidates, most confident first. On short texts ICU often names no 8-bit
// charset at all, so text without control bytes is finally tried as Latin-1 or, with bytes
// in 0x80-0x9F, windows-1252: the legacy encodings a Linux diary most likely holds.
QList<int> narrowCandidates(const QByteArray &bytes)
{
    QList<int> numbers;
    for (const QByteArray &charset : TextEncoding::detectCharsets(bytes)) {
        const int number = TextEncoding::numberForCharset(charset);
        if (number == 0 || TextEncoding::isUnicode(number) || numbers.contains(number))
            continue;
        numbers << number;
    }
    if (!hasControlBytes(bytes)) {
        const int legacy = hasC1Bytes(bytes) ? 12 : 5;
        if (!numbers.contains(legacy))
            numbers << legacy;
    }
    return numbers;
}

void finish(EntryLoader::Result *result, const QString &decoded, LineEnding fallback)
{
    result->format.lineEnding = TextFormat::lineEndingOf(decoded, fallback);
    result->text = TextFormat::withUnixLineBreaks(decoded);
}

// A mark's encoding, or 0 when the bytes start with none.
int markedEncoding(const QByteArray &bytes)
{
    for (const Mark &mark : kMarks)
        if (bytes.startsWith(QByteArray::fromRawData(mark.bytes, mark.length)))
            return mark.encoding;
    return 0;
}

bool tryEncoding(const QByteArray &bytes, int number, bool mark, EntryLoader::Result *result)
{
    QString text;
    if (!TextEncoding::decode(bytes, number, &text) || (!mark && !looksWritten(text)))
        return false;
    result->format.encoding = number;
    result->format.byteOrderMark = mark;
    finish(result, text, LineEnding::LF);
    return true;
}

// Bytes rewritten by another program may still decode in the old encoding without being in
// it: UTF-8 is valid UTF-16 more often than not, a file given another byte-order mark still
// decodes in the old byte order, and one rewritten in UTF-16 is valid Latin-1.
bool knownFormatStillFits(const QByteArray &bytes, int encoding)
{
    int known = encoding;
    if (known == TextEncoding::UTF16WithBOM)
        known = TextEncoding::UTF16LE;
    else if (known == TextEncoding::UTF32WithBOM)
        known = TextEncoding::UTF32LE;
    const int marked = markedEncoding(bytes);
    if (marked)
        return marked == known;
    if (TextEncoding::isUnicode(known) && known != TextEncoding::UTF8)
        return wideCandidates(bytes).contains(known);
    return wideCandidates(bytes).isEmpty();
}

} // namespace

EntryLoader::Result EntryLoader::decode(const QByteArray &bytes)
{
    Result result;
    const int marked = markedEncoding(bytes);
    if (marked && tryEncoding(bytes, marked, true, &result))
        return result;
    for (const int number : wideCandidates(bytes))
        if (tryEncoding(bytes, number, false, &result))
            return result;
    QString text;
    if (TextEncoding::decodeUtf8(bytes, &text)) {
        result.format.encoding = TextEncoding::UTF8;
        result.format.byteOrderMark = bytes.startsWith("\xEF\xBB\xBF");
        finish(&result, text, LineEnding::LF);
        return result;
    }
    for (const int number : narrowCandidates(bytes)) {
        if (TextEncoding::decode(bytes, number, &text) && !text.isEmpty()) {
            result.format.encoding = number;
            finish(&result, text, LineEnding::LF);
            return result;
        }
    }
    // Every one of the thirty attempts runs, whatever the earlier ones gave: the last one,
    // Mac OS Roman, takes any byte sequence, and the text then saves back as UTF-8.
    for (int number = 1; number <= TextEncoding::MacOSRoman; ++number) {
        QString attempt;
        if (TextEncoding::decode(bytes, number, &attempt))
            text = attempt;
        else
            text.clear();
    }
    result.format.encoding = TextEncoding::UTF8;
    finish(&result, text, LineEnding::LF);
    return result;
}

namespace {
EntryLoader::Result unreadable(const QString &path, const QString &error)
{
    EntryLoader::Result failed;
    failed.readable = false;
    failed.error = error;
    failed.stamp = FileStamp::of(path);
    return failed;
}
} // namespace

EntryLoader::Result EntryLoader::load(const QString &path)
{
    QByteArray bytes;
    FileStamp stamp;
    QString error;
    if (!readFile(path, &bytes, &stamp, &error))
        return unreadable(path, error);
    Result result = decode(bytes);
    result.stamp = stamp;
    return result;
}

EntryLoader::Result EntryLoader::reload(const QString &path, const TextFormat &format)
{
    QByteArray bytes;
    FileStamp stamp;
    QString error;
    if (!readFile(path, &bytes, &stamp, &error)) {
        Result failed = unreadable(path, error);
        failed.format = format;
        return failed;
    }
    if (knownFormatStillFits(bytes, format.encoding)) {
        QString text;
        if (TextEncoding::decode(bytes, format.encoding, &text)) {
            Result result;
            result.format = format;
            const QByteArray mark = TextEncoding::byteOrderMark(format.encoding);
            result.format.byteOrderMark = !mark.isEmpty() && bytes.startsWith(mark);
            finish(&result, text, format.lineEnding);
            result.stamp = stamp;
            return result;
        }
    }
    Result result = decode(bytes);
    result.stamp = stamp;
    return result;
}
