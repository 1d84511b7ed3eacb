#pragma once

#include "TextBuffer.h"

#include <QList>
#include <QString>

// One inverse edit: put `text` where `range` now stands.
struct UndoOperation
{
    TextRange range;
    QString text;
};

// One user-visible undo step: the inverse edits registered while it was made, applied in
// reverse order to undo it, and the selections to restore on either side.
struct UndoStep
{
    QString actionKey; // localisation key of the step's name
    QList<UndoOperation> operations;
    TextRange selectionBefore;
    TextRange selectionAfter;
    bool typing = false; // ordinary typing, which later keystrokes may extend
};

// The editor's single undo history: a stack of named steps and a stack of undone steps.
// Inverse edits registered while a step is being undone form its redo step and vice versa,
// so every undone edit can be redone.
class UndoHistory
{
public:
    enum class State { Normal, Undoing, Redoing };

    State state() const { return m_state; }
    bool isUndoing() const { return m_state == State::Undoing; }
    bool isRedoing() const { return m_state == State::Redoing; }

    bool canUndo() const { return !m_undo.isEmpty(); }
    bool canRedo() const { return !m_redo.isEmpty(); }
    QString undoActionKey() const;
    QString redoActionKey() const;
    int undoCount() const { return int(m_undo.size()); }
    int redoCount() const { return int(m_redo.size()); }
    void clear();

    // Groups nest; everything registered until the outermost close is one step.
    void openGroup(TextRange selection);
    void closeGroup(TextRange selection);
    bool isGroupOpen() const { return m_depth > 0; }
    // Adds an inverse edit to the open group (or to a group of its own).
    void registerOperation(const UndoOperation &operation, TextRange selection);
    // Names the open group; ignored while replaying, where the step keeps its name.
    void setActionName(const QString &key);
    // Marks the open group as typing that later keystrokes may extend.
    void setTyping(bool typing);

    // The typing step that the next keystroke may still extend, or nullptr.
    UndoStep *openTypingStep();
    // Stops later keystrokes from extending the current typing step.
    void breakTyping() { m_typingOpen = false; }

    // Replay support for the model: take the top step and collect the inverse step.
    UndoStep takeUndoStep();
    UndoStep takeRedoStep();
    void beginReplay(State state, const UndoStep &step);
    // selection: what the replay left selected (restored when the collected step replays).
    void endReplay(TextRange selection);

private:
    void pushFinished(UndoStep step);

    QList<UndoStep> m_undo;
    QList<UndoStep> m_redo;
    UndoStep m_pending;
    int m_depth = 0;
    State m_state = State::Normal;
    bool m_typingOpen = false;
};
