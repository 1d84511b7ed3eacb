#include "TextClasses.h"

namespace TextClasses {

bool isNewline(QChar c)
{
    const char16_t u = c.unicode();
    return u == u'\n' || u == u'\r' || u == 0x0085 || u == 0x2028 || u == 0x2029;
}

bool isWhitespace(QChar c)
{
    return c == u'\t' || c.category() == QChar::Separator_Space;
}

bool isBlank(QChar c)
{
    return isWhitespace(c) || isNewline(c);
}

bool containsNewline(QStringView text)
{
    for (QChar c : text)
        if (isNewline(c))
            return true;
    return false;
}

bool containsBlank(QStringView text)
{
    for (QChar c : text)
        if (isBlank(c))
            return true;
    return false;
}

bool containsLetter(QStringView text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        char32_t code = text[i].unicode();
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            code = QChar::surrogateToUcs4(text[i], text[i + 1]);
            ++i;
        }
        if (QChar::isLetter(code))
            return true;
    }
    return false;
}

namespace {
template <typename Pred> QString trimmedBy(QStringView text, Pred pred)
{
    qsizetype start = 0;
    qsizetype end = text.size();
    while (start < end && pred(text[start]))
        ++start;
    while (end > start && pred(text[end - 1]))
        --end;
    return text.mid(start, end - start).toString();
}

template <typename Pred> QStringList splitBy(QStringView text, Pred pred)
{
    QStringList pieces;
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (pred(text[i])) {
            pieces.append(text.mid(start, i - start).toString());
            start = i + 1;
        }
    }
    pieces.append(text.mid(start).toString());
    return pieces;
}
} // namespace

QString trimmedWhitespace(QStringView text)
{
    return trimmedBy(text, isWhitespace);
}

QString trimmedBlanks(QStringView text)
{
    return trimmedBy(text, isBlank);
}

QStringList splitAtNewlines(QStringView text)
{
    return splitBy(text, isNewline);
}

QStringList splitAtWhitespace(QStringView text)
{
    return splitBy(text, isWhitespace);
}

} // namespace TextClasses
