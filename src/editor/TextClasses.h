#pragma once

#include <QChar>
#include <QString>
#include <QStringList>
#include <QStringView>

// The character classes the editor's rules are written in. Newline: LF, CR, U+0085, U+2028,
// U+2029. Whitespace: horizontal only (space, tab, the Unicode space separators). Blank:
// either of the two.
namespace TextClasses {
bool isNewline(QChar c);
bool isWhitespace(QChar c);
bool isBlank(QChar c);
bool containsNewline(QStringView text);
bool containsBlank(QStringView text);
bool containsLetter(QStringView text);

QString trimmedWhitespace(QStringView text);
QString trimmedBlanks(QStringView text);
// Pieces between newline characters (CRLF counts as two separators, as each unit does).
QStringList splitAtNewlines(QStringView text);
// Pieces between whitespace characters, empty pieces kept.
QStringList splitAtWhitespace(QStringView text);
} // namespace TextClasses
