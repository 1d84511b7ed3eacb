#pragma once

class TextEditorModel;

// The menu commands that reshape the text around the selection. Each text change is one
// named undo step; a command that cannot act beeps (indent and de-indent of an empty
// selection do nothing, silently). All return whether they acted.
class LineCommands
{
public:
    static bool indentSelectedText(TextEditorModel &model);
    static bool deIndentSelectedText(TextEditorModel &model);
    static bool insertSelectedTextBeforeSelection(TextEditorModel &model);
    static bool insertSelectedTextAfterSelection(TextEditorModel &model);
    static bool insertSelectedTextLeftToSelection(TextEditorModel &model);
    static bool insertSelectedTextRightToSelection(TextEditorModel &model);
    static bool moveSelectionUp(TextEditorModel &model);
    static bool moveSelectionDown(TextEditorModel &model);
    static bool moveSelectionLeft(TextEditorModel &model);
    static bool moveSelectionRight(TextEditorModel &model);
    static bool moveCursorToTheEndOfParagraph(TextEditorModel &model);
    static bool moveCursorToTheBeginningOfParagraph(TextEditorModel &model);
    static bool moveCursorToPreviousEmptyLine(TextEditorModel &model);
    static bool moveCursorToNextEmptyLine(TextEditorModel &model);
    static bool moveCursorToTheEndOfParagraphAndPerformHardLineBreak(TextEditorModel &model);
};
