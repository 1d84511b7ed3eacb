#include "ViewTextBuffer.h"

#include <QPlainTextEdit>

ViewTextBuffer::ViewTextBuffer(QPlainTextEdit *view)
    : DocumentTextBuffer(view->document())
    , m_view(view)
{
    // The view's cursor is the selection here; a second one on the document would only be
    // carried along by every insertion, once per line when an entry loads.
    m_cursor = QTextCursor();
}

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
    // Straight into the document, then the caret back to the start as the view's own
    // setPlainText leaves it: that one also lays the caret's character format over the whole
    // text afterwards, which the editor's plain text never needs and which costs a sixth of
    // loading a long list-heavy entry.
    m_view->document()->setPlainText(text);
    m_view->document()->setModified(false);
    m_view->moveCursor(QTextCursor::Start);
}
