#include "TextEditorModel.h"

#include "TextClasses.h"

#include <algorithm>

TextEditorModel::TextEditorModel(std::unique_ptr<TextBuffer> buffer, QObject *parent)
    : QObject(parent)
    , m_buffer(std::move(buffer))
{}

TextEditorModel::~TextEditorModel() = default;

void TextEditorModel::setString(const QString &text)
{
    ++m_applying;
    m_buffer->setText(text);
    --m_applying;
    m_history.clear();
    Q_EMIT undoStateChanged();
}

void TextEditorModel::setSelectedRange(TextRange range)
{
    m_buffer->setSelection(m_buffer->clamped(range));
}

bool TextEditorModel::userEdit(TextRange affected, const QString &replacement,
                               const QString &actionKey)
{
    if (!m_editable)
        return false;
    affected = m_buffer->clamped(affected);
    if (m_history.isGroupOpen()) {
        // Typed by the engine (a pair, a typographic quote) or inside a command: part of the
        // step already being made.
        if (!m_engine.shouldChangeTextInRange(*this, affected, replacement))
            return false;
        m_history.setActionName(actionKey);
        const int inserted = replaceRecorded(affected, replacement);
        m_buffer->setSelection({affected.location + inserted, 0});
        return true;
    }
    bool accepted = false;
    {
        // An edit the engine lets through leaves this step empty, and an empty step is
        // dropped; everything the engine does instead lands in it.
        Step step(*this);
        accepted = m_engine.shouldChangeTextInRange(*this, affected, replacement);
    }
    if (!accepted)
        return false;
    if (affected.length == 0 && replacement.isEmpty())
        return true;
    applyTyping(affected, replacement, actionKey);
    return true;
}

bool TextEditorModel::insertText(const QString &text, const QString &actionKey)
{
    return userEdit(selectedRange(), text, actionKey);
}

void TextEditorModel::applyTyping(TextRange range, const QString &replacement,
                                  const QString &actionKey)
{
    const QString removed = m_buffer->mid(range.location, range.length);
    UndoStep *open = m_history.openTypingStep();
    if (open && open->actionKey == actionKey && extendTyping(*open, range, replacement, removed)) {
        ++m_applying;
        const int inserted = m_buffer->replace(range.location, range.length, replacement);
        m_buffer->setSelection({range.location + inserted, 0});
        --m_applying;
        open->selectionAfter = selectedRange();
        Q_EMIT undoStateChanged();
        return;
    }
    Step step(*this);
    m_history.setTyping(true);
    m_history.setActionName(actionKey);
    const int inserted = replaceRecorded(range, replacement);
    m_buffer->setSelection({range.location + inserted, 0});
}

int TextEditorModel::replaceRecorded(TextRange range, const QString &text)
{
    range = m_buffer->clamped(range);
    const QString removed = m_buffer->mid(range.location, range.length);
    ++m_applying;
    const int inserted = m_buffer->replace(range.location, range.length, text);
    --m_applying;
    // The inverse is what the buffer really took out and put in (a buffer may normalise line
    // breaks), never a length a caller worked out.
    m_history.registerOperation({{range.location, inserted}, removed}, selectedRange());
    return inserted;
}

// A keystroke that continues the run of the open typing step joins it instead of making a
// step of its own: more characters of the same word at its end, or deletions at either of
// its edges.
bool TextEditorModel::extendTyping(UndoStep &step, TextRange range, const QString &replacement,
                                   const QString &removed)
{
    if (step.operations.size() != 1 || selectedRange() != step.selectionAfter)
        return false;
    UndoOperation &op = step.operations.first();
    const int inserted = int(replacement.size());
    if (range.length == 0 && inserted > 0 && range.location == op.range.end()) {
        // Each word (with the blanks after it) undoes on its own.
        if (op.range.length > 0 && TextClasses::isBlank(m_buffer->at(op.range.end() - 1)) &&
            !TextClasses::isBlank(replacement.at(0)))
            return false;
        op.range.length += inserted;
        return true;
    }
    if (inserted > 0)
        return false;
    if (range.end() == op.range.end() && range.location >= op.range.location) {
        // Backspace over what this step typed.
        op.range.length -= range.length;
        return true;
    }
    if (range.end() == op.range.location && op.range.length == 0) {
        // Backspace over older text.
        op.text.prepend(removed);
        op.range.location = range.location;
        return true;
    }
    if (range.location == op.range.end()) {
        // Forward delete after the typed text.
        op.text.append(removed);
        return true;
    }
    return false;
}

void TextEditorModel::undoCustomInsertionInRange(TextRange range, const QString &string)
{
    performEdit(range, string, QStringLiteral("UNDO_TEXT_ACTION"));
}

void TextEditorModel::undoCustomInsertionInRange(TextRange range, const QString &string,
                                                 TextRange selectRange)
{
    performEdit(range, string, QStringLiteral("UNDO_TEXT_ACTION"), selectRange);
}

void TextEditorModel::setUndoActionName(const QString &key)
{
    m_history.setActionName(key);
}

void TextEditorModel::replaceCharactersInRange(TextRange range, const QString &string)
{
    range = m_buffer->clamped(range);
    const TextRange selection = selectedRange();
    // A step of its own when no step is being made, with the selections on either side.
    Step step(*this);
    const int inserted = replaceRecorded(range, string);
    const int delta = inserted - range.length;
    if (selection.location >= range.end())
        m_buffer->setSelection({selection.location + delta, selection.length});
    else if (selection.end() <= range.location)
        m_buffer->setSelection(selection);
    else
        m_buffer->setSelection({range.location + inserted, 0});
}

void TextEditorModel::performEdit(TextRange range, const QString &text, const QString &actionKey,
                                  std::optional<TextRange> select)
{
    Step step(*this);
    setUndoActionName(actionKey);
    replaceCharactersInRange(range, text);
    if (select)
        setSelectedRange(*select);
    scheduleChangeNotice();
}

TextEditorModel::Step::Step(TextEditorModel &model)
    : m_model(model)
{
    m_model.m_history.openGroup(m_model.selectedRange());
}

TextEditorModel::Step::~Step()
{
    m_model.m_history.closeGroup(m_model.selectedRange());
    if (!m_model.m_history.isGroupOpen())
        Q_EMIT m_model.undoStateChanged();
}

void TextEditorModel::undo()
{
    if (m_editable && m_history.canUndo())
        replay(true);
}

void TextEditorModel::redo()
{
    if (m_editable && m_history.canRedo())
        replay(false);
}

void TextEditorModel::replay(bool undoing)
{
    const UndoStep step = undoing ? m_history.takeUndoStep() : m_history.takeRedoStep();
    m_history.beginReplay(undoing ? UndoHistory::State::Undoing : UndoHistory::State::Redoing,
                          step);
    for (auto op = step.operations.crbegin(); op != step.operations.crend(); ++op)
        undoCustomInsertionInRange(op->range, op->text);
    setSelectedRange(step.selectionBefore);
    m_history.endReplay(selectedRange());
    scrollSelectionToVisible();
    Q_EMIT undoStateChanged();
}

QVariantMap TextEditorModel::availableTabActions() const
{
    return m_tabActionProvider ? m_tabActionProvider() : QVariantMap();
}

void TextEditorModel::setTabActionProvider(std::function<QVariantMap()> provider)
{
    m_tabActionProvider = std::move(provider);
}
