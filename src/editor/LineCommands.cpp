#include "LineCommands.h"

#include "TextClasses.h"
#include "TextEditorModel.h"

#include <QStringList>

using namespace TextClasses;

namespace {
const QString kNewline = QStringLiteral("\n");

// Refuses with a beep: nothing selected, or the model cannot be edited.
bool refuse(TextEditorModel &model)
{
    model.beep();
    return false;
}

void moveCaret(TextEditorModel &model, int position)
{
    model.breakTyping();
    model.setSelectedRange({position, 0});
    model.scrollSelectionToVisible();
}
} // namespace

bool LineCommands::indentSelectedText(TextEditorModel &model)
{
    const TextRange s = model.selectedRange();
    if (s.length == 0 || !model.isEditable())
        return false;
    const QStringList pieces = splitAtNewlines(model.buffer().mid(s.location, s.length));
    QString result;
    for (qsizetype i = 0; i + 1 < pieces.size(); ++i)
        result += u'\t' + pieces.at(i) + u'\n';
    if (!pieces.constLast().isEmpty())
        result += u'\t' + pieces.constLast();
    model.performEdit(s, result, QStringLiteral("UNDO_INDENTION_CHANGE"),
                      TextRange{s.location, int(result.size())});
    return true;
}

bool LineCommands::deIndentSelectedText(TextEditorModel &model)
{
    const TextRange s = model.selectedRange();
    if (s.length == 0 || !model.isEditable())
        return false;
    const QString old = model.buffer().mid(s.location, s.length);
    QStringList pieces = splitAtNewlines(old);
    for (QString &piece : pieces)
        if (piece.startsWith(u'\t'))
            piece.remove(0, 1);
    QString result;
    for (qsizetype i = 0; i + 1 < pieces.size(); ++i)
        result += pieces.at(i) + u'\n';
    result += pieces.constLast();
    if (result == old)
        return true;
    model.performEdit(s, result, QStringLiteral("UNDO_INDENTION_CHANGE"),
                      TextRange{s.location, int(result.size())});
    return true;
}

bool LineCommands::insertSelectedTextBeforeSelection(TextEditorModel &model)
{
    const TextRange s = model.selectedRange();
    if (s.length == 0 || !model.isEditable())
        return refuse(model);
    const QString copy = model.buffer().mid(s.location, s.length) + u'\n';
    model.performEdit({s.location, 0}, copy, QStringLiteral("UNDO_INDENTION_CHANGE"),
                      TextRange{s.location + int(copy.size()), s.length});
    return true;
}

bool LineCommands::insertSelectedTextAfterSelection(TextEditorModel &model)
{
    const TextRange s = model.selectedRange();
    if (s.length == 0 || !model.isEditable())
        return refuse(model);
    const QString copy = u'\n' + model.buffer().mid(s.location, s.length);
    model.performEdit({s.end(), 0}, copy, QStringLiteral("UNDO_INDENTION_CHANGE"), s);
    return true;
}

bool LineCommands::insertSelectedTextLeftToSelection(TextEditorModel &model)
{
    const TextRange s = model.selectedRange();
    if (s.length == 0 || !model.isEditable())
        return refuse(model);
    const QString copy = model.buffer().mid(s.location, s.length) + u' ';
    model.performEdit({s.location, 0}, copy, QStringLiteral("UNDO_COPYPAST_LEFT"),
                      TextRange{s.location + int(copy.size()), s.length});
    return true;
}

bool LineCommands::insertSelectedTextRightToSelection(TextEditorModel &model)
{
    const TextRange s = model.selectedRange();
    if (s.length == 0 || !model.isEditable())
        return refuse(model);
    const QString copy = u' ' + model.buffer().mid(s.location, s.length);
    model.performEdit({s.end(), 0}, copy, QStringLiteral("UNDO_COPYPAST_RIGHT"), s);
    return true;
}

bool LineCommands::moveSelectionUp(TextEditorModel &model)
{
    const TextRange s = model.selectedRange();
    if (s.length == 0 || s.location == 0 || !model.isEditable())
        return refuse(model);
    TextBuffer &buffer = model.buffer();
    const int found = buffer.lastIndexOf(kNewline, s.location);
    const int p = found >= 0 ? found : 0;
    const int f = found >= 0 ? 1 : 0;
    const QString moved = buffer.mid(s.location, s.length);
    // The span from the line break above to the selection's end is rewritten as one edit.
    const QString region = moved + u'\n' + buffer.mid(p + f, s.location - p - f);
    model.performEdit({p, s.end() - p}, region, QStringLiteral("UNDO_MOVE_UP"),
                      TextRange{p, s.length});
    model.scrollSelectionToVisible();
    return true;
}

bool LineCommands::moveSelectionDown(TextEditorModel &model)
{
    const TextRange s = model.selectedRange();
    // A selection at position 0 is refused too, although nothing above it is involved.
    if (s.length == 0 || s.location == 0 || !model.isEditable())
        return refuse(model);
    TextBuffer &buffer = model.buffer();
    const int found = buffer.indexOf(kNewline, s.end());
    const int q = found >= 0 ? found : buffer.length();
    const int f = found >= 0 ? 1 : 0;
    const QString moved = buffer.mid(s.location, s.length);
    const QString region = buffer.mid(s.end(), q - s.end()) + u'\n' + moved;
    model.performEdit({s.location, q + f - s.location}, region, QStringLiteral("UNDO_MOVE_DOWN"),
                      TextRange{q + 1 - s.length, s.length});
    model.scrollSelectionToVisible();
    return true;
}

bool LineCommands::moveSelectionLeft(TextEditorModel &model)
{
    TextRange s = model.selectedRange();
    if (s.length == 0 || s.location == 0 || !model.isEditable())
        return refuse(model);
    TextBuffer &buffer = model.buffer();
    const QString word = buffer.mid(s.location, s.length);
    bool extended = false;
    if (isBlank(buffer.at(s.location - 1))) {
        s = {s.location - 1, s.length + 1};
        extended = true;
    }
    int q = s.location - 1;
    while (q >= 0 && !isBlank(buffer.at(q)))
        --q;
    const int f = q >= 0 ? 1 : 0;
    q = std::max(q, 0);
    const QString separator = buffer.mid(q, f);
    const QString moved = buffer.mid(s.location, s.length);
    const QString region = moved + separator + buffer.mid(q + f, s.location - q - f);
    // The moved word alone ends up selected.
    model.performEdit({q, s.end() - q}, region, QStringLiteral("UNDO_MOVE_DOWN"),
                      TextRange{q + (extended ? 1 : 0), int(word.size())});
    model.scrollSelectionToVisible();
    return true;
}

bool LineCommands::moveSelectionRight(TextEditorModel &model)
{
    TextRange s = model.selectedRange();
    TextBuffer &buffer = model.buffer();
    if (s.length == 0 || s.location >= buffer.length() || !model.isEditable())
        return refuse(model);
    const QString word = buffer.mid(s.location, s.length);
    if (s.end() < buffer.length() && isBlank(buffer.at(s.end())))
        s = {s.location, s.length + 1};
    int q = s.end();
    while (q < buffer.length() && !isBlank(buffer.at(q)))
        ++q;
    const int f = q < buffer.length() ? 1 : 0;
    const QString separator = buffer.mid(q, f);
    const QString moved = buffer.mid(s.location, s.length);
    const QString region = buffer.mid(s.end(), q - s.end()) + separator + moved;
    model.performEdit({s.location, q + f - s.location}, region, QStringLiteral("UNDO_MOVE_DOWN"),
                      TextRange{s.location + q - s.end() + f, int(word.size())});
    model.scrollSelectionToVisible();
    return true;
}

bool LineCommands::moveCursorToTheEndOfParagraph(TextEditorModel &model)
{
    const int found = model.buffer().indexOf(kNewline, model.selectedRange().end());
    moveCaret(model, found >= 0 ? found : model.length());
    return true;
}

bool LineCommands::moveCursorToTheBeginningOfParagraph(TextEditorModel &model)
{
    // Stops on the line break itself, so repeated use walks back one line end at a time.
    const int found = model.buffer().lastIndexOf(kNewline, model.selectedRange().location);
    moveCaret(model, found >= 0 ? found : 0);
    return true;
}

bool LineCommands::moveCursorToPreviousEmptyLine(TextEditorModel &model)
{
    const int found =
        model.buffer().lastIndexOf(QStringLiteral("\n\n"), model.selectedRange().location);
    if (found < 0)
        return refuse(model);
    moveCaret(model, found + 1);
    return true;
}

bool LineCommands::moveCursorToNextEmptyLine(TextEditorModel &model)
{
    const int found = model.buffer().indexOf(QStringLiteral("\n\n"), model.selectedRange().end());
    if (found < 0)
        return refuse(model);
    moveCaret(model, found + 1);
    return true;
}

bool LineCommands::moveCursorToTheEndOfParagraphAndPerformHardLineBreak(TextEditorModel &model)
{
    moveCursorToTheEndOfParagraph(model);
    // Typed like any other text, so the typing engine sees it.
    model.insertText(QStringLiteral("  \n"));
    return true;
}
