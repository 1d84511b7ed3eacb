#pragma once

#include "TextEncoding.h"

#include <QByteArray>
#include <QString>

enum class LineEnding { LF, CRLF, CR };

// How an entry's bytes were laid out, so it is written back the same way.
struct TextFormat
{
    int encoding = TextEncoding::UTF8;      // the TextEncoding numbers
    bool byteOrderMark = false;             // the file started with a BOM (UTF-8, UTF-16, UTF-32)
    LineEnding lineEnding = LineEnding::LF; // the file's first line break decides; none -> LF

    bool operator==(const TextFormat &other) const = default;

    // The first line break of text decides; fallback when it has none.
    static LineEnding lineEndingOf(const QString &text, LineEnding fallback = LineEnding::LF);
    // Every CRLF and lone CR becomes "\n".
    static QString withUnixLineBreaks(QString text);

    // text ("\n" line breaks) as the file's bytes: line endings restored, encoded, with the
    // byte-order mark when the format has one. False when the encoding cannot represent
    // the text (nothing is substituted).
    bool encode(const QString &text, QByteArray *bytes) const;
};
