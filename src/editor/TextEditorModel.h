#pragma once

#include "TextBuffer.h"
#include "TypingEngine.h"
#include "UndoHistory.h"

#include <QObject>
#include <QString>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <optional>

// The editor without its window: a text with a selection, the typing engine that filters
// every user edit, and the one undo history all edits go through. The text view routes its
// events here; tests drive it directly over a QString.
class TextEditorModel : public QObject
{
    Q_OBJECT
public:
    explicit TextEditorModel(std::unique_ptr<TextBuffer> buffer, QObject *parent = nullptr);
    ~TextEditorModel() override;

    TextBuffer &buffer() { return *m_buffer; }
    const TextBuffer &buffer() const { return *m_buffer; }
    TypingEngine &engine() { return m_engine; }
    UndoHistory &history() { return m_history; }

    QString string() const { return m_buffer->text(); }
    int length() const { return m_buffer->length(); }
    // Loading an entry: replaces the text, forgets the history, posts no change notice.
    void setString(const QString &text);
    TextRange selectedRange() const { return m_buffer->selection(); }
    void setSelectedRange(TextRange range);

    bool isEditable() const { return m_editable; }
    void setEditable(bool editable) { m_editable = editable; }

    // A user edit (key, input method, paste, drop, deletion): offered to the typing engine,
    // applied as typing when the engine lets it through. Whatever the engine does instead,
    // including text it types itself, is one undo step. Returns whether it was let through.
    bool userEdit(TextRange affected, const QString &replacement,
                  const QString &actionKey = QStringLiteral("UNDO_TYPING"));
    // A user edit replacing the selection.
    bool insertText(const QString &text, const QString &actionKey = QStringLiteral("UNDO_TYPING"));

    // The undo primitive: puts string in range as one step named "UNDO_TEXT_ACTION" and
    // schedules the change notice. The second form selects selectRange afterwards.
    void undoCustomInsertionInRange(TextRange range, const QString &string);
    void undoCustomInsertionInRange(TextRange range, const QString &string, TextRange selectRange);

    // Names the step being made (inside a Step).
    void setUndoActionName(const QString &key);
    // Replaces without the filter. The history records exactly what was removed, so undo
    // always gives back the text as it was, whatever range a caller believes it changed.
    // A selection after the range moves with the text; one touching it ends up as a caret
    // after the new text.
    void replaceCharactersInRange(TextRange range, const QString &string);
    // One named undo step replacing range by text; selects select (or leaves the caret
    // after the new text).
    void performEdit(TextRange range, const QString &text, const QString &actionKey,
                     std::optional<TextRange> select = std::nullopt);

    // Everything done between construction and destruction is one undo step.
    class Step
    {
    public:
        explicit Step(TextEditorModel &model);
        ~Step();
        Step(const Step &) = delete;
        Step &operator=(const Step &) = delete;

    private:
        TextEditorModel &m_model;
    };

    bool canUndo() const { return m_history.canUndo(); }
    bool canRedo() const { return m_history.canRedo(); }
    QString undoActionKey() const { return m_history.undoActionKey(); }
    QString redoActionKey() const { return m_history.redoActionKey(); }
    void undo();
    void redo();
    // Ends the current typing step, so the next keystroke starts a new one.
    void breakTyping() { m_history.breakTyping(); }

    // True while the model itself changes the text (the view ignores its own echoes).
    bool isApplyingEdit() const { return m_applying > 0; }

    void beep() { Q_EMIT beepRequested(); }
    void scrollSelectionToVisible() { Q_EMIT scrollRequested(); }
    void scheduleChangeNotice() { Q_EMIT changeNoticeRequested(); }
    void scheduleCountUpdate() { Q_EMIT countUpdateRequested(); }

    // Abbreviation -> expansion, read afresh on every Tab.
    QVariantMap availableTabActions() const;
    void setTabActionProvider(std::function<QVariantMap()> provider);

Q_SIGNALS:
    // 0.1 s later "TextChangedShouldBeSavedNotification" is due.
    void changeNoticeRequested();
    void countUpdateRequested();
    void beepRequested();
    void scrollRequested();
    void undoStateChanged();

private:
    void applyTyping(TextRange range, const QString &replacement, const QString &actionKey);
    // Replaces and records the exact inverse in the open step; returns the inserted length.
    int replaceRecorded(TextRange range, const QString &text);
    bool extendTyping(UndoStep &step, TextRange range, const QString &replacement,
                      const QString &removed);
    void replay(bool undoing);

    std::unique_ptr<TextBuffer> m_buffer;
    TypingEngine m_engine;
    UndoHistory m_history;
    std::function<QVariantMap()> m_tabActionProvider;
    int m_applying = 0;
    bool m_editable = true;
};
