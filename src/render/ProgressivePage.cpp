#include "ProgressivePage.h"

#include <QList>

namespace {

bool isVoidElement(QStringView name)
{
    static const char *const names[] = {"area",  "base", "br",   "col",   "embed",  "hr",    "img",
                                        "input", "link", "meta", "param", "source", "track", "wbr"};
    for (const char *candidate : names) {
        if (name.compare(QLatin1String(candidate), Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

// Elements whose content is not read as markup: a "<" inside them means nothing.
bool holdsRawText(QStringView name)
{
    static const char *const names[] = {"script", "style",   "textarea", "title",    "xmp",
                                        "iframe", "noembed", "noframes", "noscript", "plaintext"};
    for (const char *candidate : names) {
        if (name.compare(QLatin1String(candidate), Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

bool isNameChar(QChar c)
{
    return c.isLetterOrNumber() || c == u'-' || c == u':';
}

// The index just after the ">" that ends the tag starting at from, skipping quoted
// attribute values; -1 when the markup ends first.
qsizetype tagEnd(QStringView body, qsizetype from)
{
    QChar quote;
    for (qsizetype i = from; i < body.size(); ++i) {
        const QChar c = body.at(i);
        if (!quote.isNull()) {
            if (c == quote)
                quote = QChar();
        } else if (c == u'"' || c == u'\'') {
            quote = c;
        } else if (c == u'>') {
            return i + 1;
        }
    }
    return -1;
}

} // namespace

QList<qsizetype> ProgressivePage::topLevelEnds(QStringView body)
{
    QList<qsizetype> ends;
    QList<QStringView> open;
    qsizetype i = 0;
    while (i < body.size()) {
        if (body.at(i) != u'<') {
            ++i;
            continue;
        }
        const QStringView after = body.mid(i + 1);
        if (after.startsWith(u"!--")) {
            const qsizetype close = body.indexOf(u"-->", i + 4);
            if (close < 0)
                return {};
            i = close + 3;
            continue;
        }
        if (after.startsWith(u'!') || after.startsWith(u'?')) {
            i = tagEnd(body, i + 1);
            if (i < 0)
                return {};
            continue;
        }
        const bool closing = after.startsWith(u'/');
        const qsizetype nameStart = i + 1 + (closing ? 1 : 0);
        qsizetype nameEnd = nameStart;
        while (nameEnd < body.size() && isNameChar(body.at(nameEnd)))
            ++nameEnd;
        if (nameEnd == nameStart || !body.at(nameStart).isLetter()) {
            // A lone "<" in text.
            ++i;
            continue;
        }
        const QStringView name = body.mid(nameStart, nameEnd - nameStart);
        const qsizetype end = tagEnd(body, nameEnd);
        if (end < 0)
            return {};
        if (closing) {
            // The parser would repair anything else in its own way; such markup loads whole.
            if (open.isEmpty() || open.last().compare(name, Qt::CaseInsensitive) != 0)
                return {};
            open.removeLast();
        } else if (holdsRawText(name)) {
            return {};
        } else if (!isVoidElement(name) && body.at(end - 2) != u'/') {
            open.append(name);
        }
        i = end;
        if (open.isEmpty()) {
            // The line break after an element stays with it.
            while (i < body.size() && body.at(i).isSpace())
                ++i;
            ends.append(i);
        }
    }
    if (!open.isEmpty())
        return {};
    return ends;
}

ProgressivePage ProgressivePage::split(const QString &page, qsizetype firstChars,
                                       qsizetype pieceChars)
{
    ProgressivePage result;
    result.first = page;
    const QLatin1String headEnd("</head>");
    const QLatin1String pageEnd("</html>");
    const qsizetype bodyStart = page.indexOf(headEnd, 0, Qt::CaseInsensitive);
    const qsizetype bodyEnd = page.lastIndexOf(pageEnd, -1, Qt::CaseInsensitive);
    if (bodyStart < 0 || bodyEnd < bodyStart || page.size() < 2 * firstChars)
        return result;
    const qsizetype from = bodyStart + headEnd.size();
    const QStringView body = QStringView(page).mid(from, bodyEnd - from);
    const QList<qsizetype> ends = topLevelEnds(body);

    QList<qsizetype> cuts;
    qsizetype last = 0;
    for (const qsizetype end : ends) {
        const qsizetype wanted = cuts.isEmpty() ? firstChars : pieceChars;
        if (end - last >= wanted && end < body.size()) {
            cuts.append(end);
            last = end;
        }
    }
    if (cuts.isEmpty())
        return result;
    result.first = page.left(from) + body.left(cuts.first()) + page.mid(bodyEnd);
    cuts.append(body.size());
    for (qsizetype k = 0; k + 1 < cuts.size(); ++k)
        result.rest.append(body.mid(cuts.at(k), cuts.at(k + 1) - cuts.at(k)).toString());
    return result;
}

std::optional<QStringList> ProgressivePage::pieces(QStringView markup, qsizetype pieceChars)
{
    QStringList result;
    if (markup.trimmed().isEmpty())
        return result;
    const QList<qsizetype> ends = topLevelEnds(markup);
    if (ends.isEmpty())
        return std::nullopt;
    qsizetype last = 0;
    for (const qsizetype end : ends) {
        if (end - last >= pieceChars) {
            result.append(markup.mid(last, end - last).toString());
            last = end;
        }
    }
    if (last < markup.size())
        result.append(markup.mid(last).toString());
    return result;
}
