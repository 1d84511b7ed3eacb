#include "EditorCommands.h"

#include "EnhancedTextView.h"

#include <QAction>
#include <QKeySequence>

EditorCommands::EditorCommands(QObject *parent)
    : QObject(parent)
{
    using K = QKeySequence;
    add(IndentSelectedText, "indentSelectedText", "EDITOR_CMD_INDENT", "EDITOR_CMD_INDENT_TIP",
        K(Qt::CTRL | Qt::Key_BracketRight));
    add(DeIndentSelectedText, "deIndentSelectedText", "EDITOR_CMD_DEINDENT",
        "EDITOR_CMD_DEINDENT_TIP", K(Qt::CTRL | Qt::Key_BracketLeft));
    add(InsertSelectedTextBeforeSelection, "insertSelectedTextBeforeSelection",
        "EDITOR_CMD_COPY_ABOVE", "EDITOR_CMD_COPY_ABOVE_TIP", K(Qt::ALT | Qt::SHIFT | Qt::Key_Up));
    add(InsertSelectedTextAfterSelection, "insertSelectedTextAfterSelection",
        "EDITOR_CMD_COPY_BELOW", "EDITOR_CMD_COPY_BELOW_TIP",
        K(Qt::ALT | Qt::SHIFT | Qt::Key_Down));
    add(InsertSelectedTextLeftToSelection, "insertSelectedTextLeftToSelection",
        "EDITOR_CMD_COPY_LEFT", "EDITOR_CMD_COPY_LEFT_TIP", K(Qt::ALT | Qt::SHIFT | Qt::Key_Left));
    add(InsertSelectedTextRightToSelection, "insertSelectedTextRightToSelection",
        "EDITOR_CMD_COPY_RIGHT", "EDITOR_CMD_COPY_RIGHT_TIP",
        K(Qt::ALT | Qt::SHIFT | Qt::Key_Right));
    add(MoveSelectionUp, "moveSelectionUp", "EDITOR_CMD_MOVE_UP", "EDITOR_CMD_MOVE_UP_TIP",
        K(Qt::ALT | Qt::Key_Up));
    add(MoveSelectionDown, "moveSelectionDown", "EDITOR_CMD_MOVE_DOWN", "EDITOR_CMD_MOVE_DOWN_TIP",
        K(Qt::ALT | Qt::Key_Down));
    add(MoveSelectionLeft, "moveSelectionLeft", "EDITOR_CMD_MOVE_LEFT", "EDITOR_CMD_MOVE_LEFT_TIP",
        K(Qt::ALT | Qt::Key_Left));
    add(MoveSelectionRight, "moveSelectionRight", "EDITOR_CMD_MOVE_RIGHT",
        "EDITOR_CMD_MOVE_RIGHT_TIP", K(Qt::ALT | Qt::Key_Right));
    add(MoveCursorToTheEndOfParagraph, "moveCursorToTheEndOfParagraph", "EDITOR_CMD_PARAGRAPH_END",
        "EDITOR_CMD_PARAGRAPH_END_TIP", K(Qt::CTRL | Qt::SHIFT | Qt::Key_E));
    add(MoveCursorToTheBeginningOfParagraph, "moveCursorToTheBeginningOfParagraph",
        "EDITOR_CMD_PARAGRAPH_START", "EDITOR_CMD_PARAGRAPH_START_TIP",
        K(Qt::CTRL | Qt::SHIFT | Qt::Key_A));
    add(MoveCursorToPreviousEmptyLine, "moveCursorToPreviousEmptyLine",
        "EDITOR_CMD_PREVIOUS_EMPTY_LINE", "EDITOR_CMD_PREVIOUS_EMPTY_LINE_TIP",
        K(Qt::CTRL | Qt::SHIFT | Qt::Key_Up));
    add(MoveCursorToNextEmptyLine, "moveCursorToNextEmptyLine", "EDITOR_CMD_NEXT_EMPTY_LINE",
        "EDITOR_CMD_NEXT_EMPTY_LINE_TIP", K(Qt::CTRL | Qt::SHIFT | Qt::Key_Down));
    add(MoveCursorToTheEndOfParagraphAndPerformHardLineBreak,
        "moveCursorToTheEndOfParagraphAndPerformHardLineBreak", "EDITOR_CMD_HARD_BREAK",
        "EDITOR_CMD_HARD_BREAK_TIP", K(Qt::CTRL | Qt::SHIFT | Qt::Key_Return));
    add(InsertBoldTypeStyle, "insertBoldTypeStyle", "EDITOR_CMD_BOLD", "EDITOR_CMD_BOLD_TIP",
        K(Qt::CTRL | Qt::Key_B));
    add(InsertItalicTypeStyle, "insertItalicTypeStyle", "EDITOR_CMD_ITALIC",
        "EDITOR_CMD_ITALIC_TIP", K(Qt::CTRL | Qt::Key_I));
    add(InsertStrikeTypeStyle, "insertStrikeTypeStyle", "EDITOR_CMD_STRIKE",
        "EDITOR_CMD_STRIKE_TIP", K(Qt::CTRL | Qt::SHIFT | Qt::Key_X));
    add(InsertHeadline1, "insertHeadlineStyleType1", "EDITOR_CMD_HEADLINE1",
        "EDITOR_CMD_HEADLINE_TIP", K(Qt::CTRL | Qt::ALT | Qt::Key_1));
    add(InsertHeadline2, "insertHeadlineStyleType2", "EDITOR_CMD_HEADLINE2",
        "EDITOR_CMD_HEADLINE_TIP", K(Qt::CTRL | Qt::ALT | Qt::Key_2));
    add(InsertHeadline3, "insertHeadlineStyleType3", "EDITOR_CMD_HEADLINE3",
        "EDITOR_CMD_HEADLINE_TIP", K(Qt::CTRL | Qt::ALT | Qt::Key_3));
    add(InsertHeadline4, "insertHeadlineStyleType4", "EDITOR_CMD_HEADLINE4",
        "EDITOR_CMD_HEADLINE_TIP", K(Qt::CTRL | Qt::ALT | Qt::Key_4));
    add(TransformSelectedTextToTag, "transformSelectedTextToTag", "EDITOR_CMD_TAG",
        "EDITOR_CMD_TAG_TIP", K(Qt::CTRL | Qt::SHIFT | Qt::Key_T));
    add(ContextActionRemoveMarkup, "contextActionRemoveMarkup",
        "CONTEXT_EDIT_TEXTFIELD_REMOVE_MARKUP", "CONTEXT_EDIT_TEXTFIELD_REMOVE_MARKUP_TOOLTIP",
        QKeySequence());
    add(ContextActionTrimLines, "contextActionTrimLines", "CONTEXT_EDIT_TEXTFIELD_TRIM_LINES",
        "CONTEXT_EDIT_TEXTFIELD_TRIM_LINES_TOOLTIP", QKeySequence());
    updateEnabled();
}

void EditorCommands::add(Command command, const char *name, const char *textKey, const char *tipKey,
                         const QKeySequence &shortcut)
{
    auto *action = new QAction(qtTrId(textKey), this);
    action->setObjectName(QString::fromLatin1(name));
    action->setToolTip(qtTrId(tipKey));
    action->setStatusTip(action->toolTip());
    if (!shortcut.isEmpty())
        action->setShortcut(shortcut);
    connect(action, &QAction::triggered, this, [this, command] { trigger(command); });
    m_actions.insert(command, action);
    m_ordered.append(action);
}

void EditorCommands::setTextView(EnhancedTextView *view)
{
    disconnect(m_viewConnection);
    m_view = view;
    if (view)
        m_viewConnection =
            connect(view, &EnhancedTextView::editableChanged, this, &EditorCommands::updateEnabled);
    updateEnabled();
}

QList<QAction *> EditorCommands::lineCommandActions() const
{
    return m_ordered.mid(IndentSelectedText,
                         MoveCursorToTheEndOfParagraphAndPerformHardLineBreak + 1);
}

QList<QAction *> EditorCommands::markupActions() const
{
    return m_ordered.mid(InsertBoldTypeStyle, TransformSelectedTextToTag - InsertBoldTypeStyle + 1);
}

QList<QAction *> EditorCommands::cleanUpActions() const
{
    return {action(ContextActionRemoveMarkup), action(ContextActionTrimLines)};
}

void EditorCommands::updateEnabled()
{
    const bool editable = m_view && m_view->isEditable();
    for (int command = 0; command < m_ordered.size(); ++command) {
        const bool movesCaretOnly =
            command >= MoveCursorToTheEndOfParagraph && command <= MoveCursorToNextEmptyLine;
        m_ordered.at(command)->setEnabled(movesCaretOnly ? m_view != nullptr : editable);
    }
}

void EditorCommands::trigger(Command command)
{
    EnhancedTextView *view = m_view;
    if (!view)
        return;
    const bool movesCaretOnly =
        command >= MoveCursorToTheEndOfParagraph && command <= MoveCursorToNextEmptyLine;
    if (!movesCaretOnly && !view->isEditable())
        return;
    switch (command) {
    case IndentSelectedText:
        return view->indentSelectedText();
    case DeIndentSelectedText:
        return view->deIndentSelectedText();
    case InsertSelectedTextBeforeSelection:
        return view->insertSelectedTextBeforeSelection();
    case InsertSelectedTextAfterSelection:
        return view->insertSelectedTextAfterSelection();
    case InsertSelectedTextLeftToSelection:
        return view->insertSelectedTextLeftToSelection();
    case InsertSelectedTextRightToSelection:
        return view->insertSelectedTextRightToSelection();
    case MoveSelectionUp:
        return view->moveSelectionUp();
    case MoveSelectionDown:
        return view->moveSelectionDown();
    case MoveSelectionLeft:
        return view->moveSelectionLeft();
    case MoveSelectionRight:
        return view->moveSelectionRight();
    case MoveCursorToTheEndOfParagraph:
        return view->moveCursorToTheEndOfParagraph();
    case MoveCursorToTheBeginningOfParagraph:
        return view->moveCursorToTheBeginningOfParagraph();
    case MoveCursorToPreviousEmptyLine:
        return view->moveCursorToPreviousEmptyLine();
    case MoveCursorToNextEmptyLine:
        return view->moveCursorToNextEmptyLine();
    case MoveCursorToTheEndOfParagraphAndPerformHardLineBreak:
        return view->moveCursorToTheEndOfParagraphAndPerformHardLineBreak();
    case InsertBoldTypeStyle:
        return view->insertBoldTypeStyle();
    case InsertItalicTypeStyle:
        return view->insertItalicTypeStyle();
    case InsertStrikeTypeStyle:
        return view->insertStrikeTypeStyle();
    case InsertHeadline1:
    case InsertHeadline2:
    case InsertHeadline3:
    case InsertHeadline4:
        return view->insertHeadlineStyleType(command - InsertHeadline1 + 1);
    case TransformSelectedTextToTag:
        return view->transformSelectedTextToTag();
    case ContextActionRemoveMarkup:
        return view->contextActionRemoveMarkup();
    case ContextActionTrimLines:
        return view->contextActionTrimLines();
    }
}
