#include "TextFormat.h"

LineEnding TextFormat::lineEndingOf(const QString &text, LineEnding fallback)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i) == QLatin1Char('\n'))
            return LineEnding::LF;
        if (text.at(i) == QLatin1Char('\r'))
            return i + 1 < text.size() && text.at(i + 1) == QLatin1Char('\n') ? LineEnding::CRLF
                                                                              : LineEnding::CR;
    }
    return fallback;
}

// One pass each way: QString::replace moves the rest of a 10 MB text for every CRLF.
QString TextFormat::withUnixLineBreaks(QString text)
{
    if (!text.contains(QLatin1Char('\r')))
        return text;
    QChar *out = text.data();
    const QChar *in = out;
    const QChar *end = in + text.size();
    QChar *write = out;
    for (; in < end; ++in) {
        if (*in == QLatin1Char('\r')) {
            *write++ = QLatin1Char('\n');
            if (in + 1 < end && in[1] == QLatin1Char('\n'))
                ++in;
        } else {
            *write++ = *in;
        }
    }
    text.truncate(write - out);
    return text;
}

namespace {
QString withLineEnding(const QString &text, LineEnding ending)
{
    if (ending == LineEnding::LF)
        return text;
    if (ending == LineEnding::CR) {
        QString laidOut = text;
        laidOut.replace(QLatin1Char('\n'), QLatin1Char('\r'));
        return laidOut;
    }
    QString laidOut(text.size() + text.count(QLatin1Char('\n')), Qt::Uninitialized);
    QChar *write = laidOut.data();
    for (const QChar c : text) {
        if (c == QLatin1Char('\n'))
            *write++ = QLatin1Char('\r');
        *write++ = c;
    }
    return laidOut;
}
} // namespace

bool TextFormat::encode(const QString &text, QByteArray *bytes) const
{
    const QString laidOut = withLineEnding(text, lineEnding);

    // 10 and 0x8C000100 carry their mark in the number itself; the format's flag decides.
    int number = encoding;
    if (number == TextEncoding::UTF16WithBOM)
        number = TextEncoding::UTF16LE;
    else if (number == TextEncoding::UTF32WithBOM)
        number = TextEncoding::UTF32LE;
    QByteArray body;
    if (!TextEncoding::encode(laidOut, number, &body))
        return false;
    const bool mark = byteOrderMark || encoding == TextEncoding::UTF16WithBOM ||
                      encoding == TextEncoding::UTF32WithBOM;
    *bytes = mark ? TextEncoding::byteOrderMark(number) + body : body;
    return true;
}
