#include "ListNumbering.h"

#include <algorithm>
#include <array>
#include <utility>

int ListNumbering::romanLetterValue(QChar c)
{
    switch (c.unicode()) {
    case u'I':
        return 1;
    case u'V':
        return 5;
    case u'X':
        return 10;
    case u'L':
        return 50;
    case u'C':
        return 100;
    case u'D':
        return 500;
    case u'M':
        return 1000;
    default:
        return 0;
    }
}

int ListNumbering::convertToNormal(const QString &roman)
{
    // Unsigned arithmetic: wraps like the 32-bit integers markers are kept in.
    quint32 sum = 0;
    int right = 0;
    for (qsizetype i = roman.size() - 1; i >= 0; --i) {
        const int value = romanLetterValue(roman.at(i));
        if (i == roman.size() - 1 || right <= value)
            sum += quint32(value);
        else
            sum -= quint32(value);
        right = value;
    }
    return int(sum);
}

QString ListNumbering::convertToRoman(int value)
{
    static const std::array<std::pair<int, const char *>, 13> steps = {{{1000, "M"},
                                                                        {900, "CM"},
                                                                        {500, "D"},
                                                                        {400, "CD"},
                                                                        {100, "C"},
                                                                        {90, "XC"},
                                                                        {50, "L"},
                                                                        {40, "XL"},
                                                                        {10, "X"},
                                                                        {9, "IX"},
                                                                        {5, "V"},
                                                                        {4, "IV"},
                                                                        {1, "I"}}};
    QString result;
    if (value <= 0)
        return result;
    result.reserve(value / 1000 + 16);
    for (const auto &[step, symbol] : steps) {
        const int count = value / step;
        const QLatin1StringView text(symbol);
        for (int i = 0; i < count; ++i)
            result += text;
        value %= step;
    }
    return result;
}

int ListNumbering::convertAlphaCountToNormal(const QString &letters)
{
    auto position = [](QChar c) -> quint32 {
        return c >= u'A' && c <= u'Z' ? quint32(c.unicode() - u'A' + 1) : 0u;
    };
    if (letters.isEmpty())
        return 0;
    quint32 value = position(letters.at(0));
    for (qsizetype i = 1; i < letters.size(); ++i)
        value = value * 26u + position(letters.at(i));
    return int(value);
}

QString ListNumbering::convertIntValueToAlphaCount(int value)
{
    auto letter = [](int position) { return QChar(char16_t(u'A' + position - 1)); };
    if (value < 1)
        return QStringLiteral("A");
    if (value <= 26)
        return QString(letter(value));
    QString reversed;
    int n = value;
    int t = 0;
    do {
        const int r = n % 26;
        reversed += r == 0 ? QChar(u'Z') : letter(r);
        t = n == 26 ? 0 - r : n - r;
        n = t / 26;
    } while (t > 25);
    std::reverse(reversed.begin(), reversed.end());
    return reversed;
}
