#include "UndoHistory.h"

#include <utility>

QString UndoHistory::undoActionKey() const
{
    return m_undo.isEmpty() ? QString() : m_undo.last().actionKey;
}

QString UndoHistory::redoActionKey() const
{
    return m_redo.isEmpty() ? QString() : m_redo.last().actionKey;
}

void UndoHistory::clear()
{
    m_undo.clear();
    m_redo.clear();
    m_pending = UndoStep();
    m_depth = 0;
    m_state = State::Normal;
    m_typingOpen = false;
}

void UndoHistory::openGroup(TextRange selection)
{
    if (m_depth++ == 0) {
        m_pending = UndoStep();
        m_pending.actionKey = QStringLiteral("UNDO_TEXT_ACTION");
        m_pending.selectionBefore = selection;
    }
}

void UndoHistory::closeGroup(TextRange selection)
{
    if (m_depth == 0 || --m_depth > 0)
        return;
    m_pending.selectionAfter = selection;
    if (m_pending.operations.isEmpty())
        return;
    pushFinished(std::exchange(m_pending, UndoStep()));
}

void UndoHistory::registerOperation(const UndoOperation &operation, TextRange selection)
{
    const bool ownGroup = m_depth == 0;
    if (ownGroup)
        openGroup(selection);
    m_pending.operations.append(operation);
    if (ownGroup)
        closeGroup(selection);
}

void UndoHistory::setActionName(const QString &key)
{
    if (m_state == State::Normal && m_depth > 0)
        m_pending.actionKey = key;
}

void UndoHistory::setTyping(bool typing)
{
    if (m_depth > 0 && m_state == State::Normal)
        m_pending.typing = typing;
}

UndoStep *UndoHistory::openTypingStep()
{
    if (!m_typingOpen || m_depth > 0 || m_undo.isEmpty() || !m_undo.last().typing)
        return nullptr;
    return &m_undo.last();
}

void UndoHistory::pushFinished(UndoStep step)
{
    switch (m_state) {
    case State::Normal:
        m_redo.clear();
        m_typingOpen = step.typing;
        m_undo.append(std::move(step));
        break;
    case State::Undoing:
        m_redo.append(std::move(step));
        break;
    case State::Redoing:
        m_undo.append(std::move(step));
        break;
    }
}

UndoStep UndoHistory::takeUndoStep()
{
    m_typingOpen = false;
    return m_undo.isEmpty() ? UndoStep() : m_undo.takeLast();
}

UndoStep UndoHistory::takeRedoStep()
{
    m_typingOpen = false;
    return m_redo.isEmpty() ? UndoStep() : m_redo.takeLast();
}

void UndoHistory::beginReplay(State state, const UndoStep &step)
{
    m_state = state;
    m_depth = 0;
    openGroup(step.selectionAfter);
    // The replayed step answers with the same name and restores the other selection.
    m_pending.actionKey = step.actionKey;
}

void UndoHistory::endReplay(TextRange selection)
{
    closeGroup(selection);
    m_state = State::Normal;
}
