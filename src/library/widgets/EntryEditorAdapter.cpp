#include "EntryEditorAdapter.h"

#include "editor/widgets/EnhancedTextView.h"

#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QSignalBlocker>

EntryEditorAdapter::EntryEditorAdapter(QPlainTextEdit *editor)
    : m_editor(editor)
    , m_entryEditor(qobject_cast<EnhancedTextView *>(editor))
{}

QString EntryEditorAdapter::string() const
{
    if (m_entryEditor)
        return m_entryEditor->string();
    // toPlainText() would turn no-break spaces into blanks; the raw text only needs its
    // block separators turned back into line feeds.
    QString text = m_editor->document()->toRawText();
    text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    return text;
}

void EntryEditorAdapter::setString(const QString &text)
{
    const QScopedValueRollback guard(m_settingString, true);
    if (m_entryEditor) {
        m_entryEditor->setString(text);
        return;
    }
    const QSignalBlocker blocker(m_editor);
    m_editor->setPlainText(text);
}

void EntryEditorAdapter::setEditable(bool editable)
{
    if (m_entryEditor)
        m_entryEditor->setEditable(editable);
    else
        m_editor->setReadOnly(!editable);
}

bool EntryEditorAdapter::isEditable() const
{
    return m_entryEditor ? m_entryEditor->isEditable() : !m_editor->isReadOnly();
}

int EntryEditorAdapter::selectedLocation() const
{
    if (m_entryEditor)
        return m_entryEditor->selectedRange().first;
    return m_editor->textCursor().selectionStart();
}

int EntryEditorAdapter::selectedLength() const
{
    if (m_entryEditor)
        return m_entryEditor->selectedRange().second;
    const QTextCursor cursor = m_editor->textCursor();
    return cursor.selectionEnd() - cursor.selectionStart();
}

int EntryEditorAdapter::length() const
{
    // The entry editor knows its length while a long text is still loading; the document's
    // is known without copying its text out (the last block has no separator).
    if (m_entryEditor)
        return m_entryEditor->model().buffer().length();
    return qMax(0, m_editor->document()->characterCount() - 1);
}

bool EntryEditorAdapter::holds(const QString &text) const
{
    if (length() != text.size())
        return false;
    return string() == text;
}

void EntryEditorAdapter::setSelectedRange(int location, int length)
{
    const int end = this->length();
    const int start = qBound(0, location, end);
    const int clampedLength = qBound(0, length, end - start);
    if (m_entryEditor) {
        m_entryEditor->setSelectedRange(start, clampedLength);
        return;
    }
    QTextCursor cursor(m_editor->document());
    cursor.setPosition(start);
    cursor.setPosition(start + clampedLength, QTextCursor::KeepAnchor);
    m_editor->setTextCursor(cursor);
}
