#pragma once

#include <QString>

// The "words:characters" counter under the editor.
class WordCounter
{
public:
    // Pieces between whitespace or line-break characters, empty pieces included, so two
    // blanks in a row count an extra word; 0 for an empty text.
    static int words(const QString &text);
    // UTF-16 code units.
    static int characters(const QString &text) { return int(text.size()); }
    static QString counterText(const QString &text); // "%i:%i"
};
