#include "TextBuffer.h"

#include "TextClasses.h"

#include <algorithm>

TextBuffer::~TextBuffer() = default;

int TextBuffer::lineStart(int pos) const
{
    pos = std::clamp(pos, 0, length());
    while (pos > 0 && !TextClasses::isNewline(at(pos - 1)))
        --pos;
    return pos;
}

int TextBuffer::indexOf(const QString &needle, int from) const
{
    const int n = int(needle.size());
    const int last = length() - n;
    for (int pos = std::max(0, from); pos <= last; ++pos) {
        int i = 0;
        while (i < n && at(pos + i) == needle.at(i))
            ++i;
        if (i == n)
            return pos;
    }
    return -1;
}

int TextBuffer::lastIndexOf(const QString &needle, int before) const
{
    const int n = int(needle.size());
    for (int pos = std::min(before, length()) - n; pos >= 0; --pos) {
        int i = 0;
        while (i < n && at(pos + i) == needle.at(i))
            ++i;
        if (i == n)
            return pos;
    }
    return -1;
}

TextRange TextBuffer::clamped(TextRange range) const
{
    const int len = length();
    const int location = std::clamp(range.location, 0, len);
    return {location, std::clamp(range.length, 0, len - location)};
}
