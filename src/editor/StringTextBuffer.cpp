#include "StringTextBuffer.h"

#include <algorithm>

StringTextBuffer::StringTextBuffer(const QString &text, TextRange selection)
    : m_text(text)
{
    setSelection(selection);
}

QChar StringTextBuffer::at(int pos) const
{
    return pos >= 0 && pos < m_text.size() ? m_text.at(pos) : QChar();
}

QString StringTextBuffer::mid(int pos, int len) const
{
    const TextRange r = clamped({pos, len});
    return m_text.mid(r.location, r.length);
}

int StringTextBuffer::replace(int pos, int len, const QString &text)
{
    const TextRange r = clamped({pos, len});
    m_text.replace(r.location, r.length, text);
    return int(text.size());
}

void StringTextBuffer::setText(const QString &text)
{
    m_text = text;
    m_selection = {0, 0};
}

void StringTextBuffer::setSelection(TextRange range)
{
    m_selection = clamped(range);
}

int StringTextBuffer::indexOf(const QString &needle, int from) const
{
    if (from > m_text.size())
        return -1;
    return int(m_text.indexOf(needle, std::max(0, from)));
}

int StringTextBuffer::lastIndexOf(const QString &needle, int before) const
{
    const int start = std::min(before, length()) - int(needle.size());
    if (start < 0)
        return -1;
    return int(m_text.lastIndexOf(needle, start));
}
