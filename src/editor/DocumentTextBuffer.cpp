#include "DocumentTextBuffer.h"

#include "TextClasses.h"

#include <QTextBlock>

#include <algorithm>

namespace {
QChar plain(QChar c)
{
    return c == QChar::ParagraphSeparator ? QChar(u'\n') : c;
}
} // namespace

DocumentTextBuffer::DocumentTextBuffer(QTextDocument *document)
    : m_document(document)
    , m_cursor(document)
{}

int DocumentTextBuffer::length() const
{
    return m_document ? m_document->characterCount() - 1 : 0;
}

QChar DocumentTextBuffer::at(int pos) const
{
    if (pos < 0 || pos >= length())
        return QChar();
    return plain(m_document->characterAt(pos));
}

QString DocumentTextBuffer::mid(int pos, int len) const
{
    const TextRange r = clamped({pos, len});
    if (r.length == 0)
        return QString();
    QTextCursor cursor(m_document);
    cursor.setPosition(r.location);
    cursor.setPosition(r.end(), QTextCursor::KeepAnchor);
    QString text = cursor.selectedText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    return text;
}

QString DocumentTextBuffer::normalisedLineBreaks(const QString &text)
{
    QString result = text;
    result.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    result.replace(u'\r', u'\n');
    result.replace(QChar::ParagraphSeparator, u'\n');
    return result;
}

int DocumentTextBuffer::replace(int pos, int len, const QString &text)
{
    const TextRange r = clamped({pos, len});
    const int before = length();
    QTextCursor cursor(m_document);
    cursor.setPosition(r.location);
    cursor.setPosition(r.end(), QTextCursor::KeepAnchor);
    if (text.isEmpty())
        cursor.removeSelectedText();
    else
        cursor.insertText(text);
    return length() - before + r.length;
}

void DocumentTextBuffer::setText(const QString &text)
{
    m_document->setPlainText(text);
    m_cursor = QTextCursor(m_document);
}

TextRange DocumentTextBuffer::selection() const
{
    return {m_cursor.selectionStart(), m_cursor.selectionEnd() - m_cursor.selectionStart()};
}

void DocumentTextBuffer::setSelection(TextRange range)
{
    const TextRange r = clamped(range);
    m_cursor.setPosition(r.location);
    m_cursor.setPosition(r.end(), QTextCursor::KeepAnchor);
}

int DocumentTextBuffer::lineStart(int pos) const
{
    pos = std::clamp(pos, 0, length());
    const QTextBlock block = m_document->findBlock(pos);
    if (!block.isValid())
        return 0;
    // Separators other than the paragraph break can sit inside a block (U+2028, U+0085).
    const QString text = block.text();
    int i = pos - block.position();
    while (i > 0 && !TextClasses::isNewline(text.at(i - 1)))
        --i;
    return block.position() + i;
}

int DocumentTextBuffer::indexOf(const QString &needle, int from) const
{
    const int n = int(needle.size());
    if (n == 0 || from > length())
        return -1;
    from = std::max(0, from);
    // Scan block by block, carrying the last n-1 units over so matches across a line break
    // are seen.
    QTextBlock block = m_document->findBlock(from);
    QString window;
    int windowStart = from;
    while (block.isValid()) {
        QString piece = block.text();
        if (block.next().isValid())
            piece += u'\n';
        int offset = std::max(0, from - block.position());
        window += QStringView(piece).mid(offset);
        const qsizetype found = window.indexOf(needle);
        if (found >= 0)
            return windowStart + int(found);
        if (window.size() > n - 1) {
            const qsizetype drop = window.size() - (n - 1);
            window.remove(0, drop);
            windowStart += int(drop);
        }
        from = block.position() + block.length();
        block = block.next();
    }
    return -1;
}

int DocumentTextBuffer::lastIndexOf(const QString &needle, int before) const
{
    const int n = int(needle.size());
    before = std::min(before, length());
    if (n == 0 || before < n)
        return -1;
    QTextBlock block = m_document->findBlock(before - 1);
    QString window; // text of [windowStart, before)
    int windowStart = before;
    while (block.isValid()) {
        QString piece = block.text();
        if (block.next().isValid())
            piece += u'\n';
        const int take = windowStart - block.position();
        window.prepend(QStringView(piece).left(take));
        windowStart = block.position();
        const qsizetype found = window.lastIndexOf(needle);
        if (found >= 0)
            return windowStart + int(found);
        if (window.size() > n - 1)
            window.truncate(n - 1);
        block = block.previous();
    }
    return -1;
}
