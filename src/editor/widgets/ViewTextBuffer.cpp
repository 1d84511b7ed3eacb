#include "ViewTextBuffer.h"

#include <QPlainTextEdit>

ViewTextBuffer::ViewTextBuffer(QPlainTextEdit *view)
    : DocumentTextBuffer(view->document())
    , m_view(view)
{}

TextRange ViewTextBuffer::selection() const
{
    const QTextCursor cursor = m_view->textCursor();
    return {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
}

void ViewTextBuffer::setSelection(TextRange range)
{
    const TextRange r = clamped(range);
    QTextCursor cursor = m_view->textCursor();
    cursor.setPosition(r.location);
    cursor.setPosition(r.end(), QTextCursor::KeepAnchor);
    m_view->setTextCursor(cursor);
}

void ViewTextBuffer::setText(const QString &text)
{
    m_view->setPlainText(text);
}
