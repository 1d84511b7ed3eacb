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

QString TextFormat::withUnixLineBreaks(QString text)
{
    if (!text.contains(QLatin1Char('\r')))
        return text;
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text;
}

bool TextFormat::encode(const QString &text, QByteArray *bytes) const
{
    QString laidOut = text;
    if (lineEnding == LineEnding::CRLF)
        laidOut.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    else if (lineEnding == LineEnding::CR)
        laidOut.replace(QLatin1Char('\n'), QLatin1Char('\r'));

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
