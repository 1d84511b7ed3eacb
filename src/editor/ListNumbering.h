#pragma once

#include <QString>

// The marker arithmetic of numbered lists: roman numerals and letter counts to and from
// integers, all in upper case and 32-bit signed with wrap-around.
class ListNumbering
{
public:
    // Roman letters to integer, comparing each letter with its right-hand neighbour only
    // ("IIX" reads 10); other characters, such as a trailing space, are worth 0.
    static int convertToNormal(const QString &roman);
    // Greedy roman numeral with no upper bound; zero and negatives give "".
    static QString convertToRoman(int value);
    // "A" = 1 ... "Z" = 26, "AA" = 27; other characters count 0.
    static int convertAlphaCountToNormal(const QString &letters);
    // The inverse as this application numbers letter lists: a remainder of 0 writes "Z"
    // without borrowing, so 52 gives "BZ" and 702 gives "AAZ". Values below 1 give "A".
    static QString convertIntValueToAlphaCount(int value);

    static int romanLetterValue(QChar c);
};
