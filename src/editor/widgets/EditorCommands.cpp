#include "EditorCommands.h"

#include "EnhancedTextView.h"
#include "widgets/MenuBuilder.h"

#include <QAction>

#include <iterator>

namespace {
// The table's names of the commands, in the order of EditorCommands::Command.
const char *const kCommandNames[] = {
    "actionIndent",
    "actionDeIndent",
    "actionCopyAbove",
    "actionCopyBelow",
    "actionCopyLeft",
    "actionCopyRight",
    "actionMoveUp",
    "actionMoveDown",
    "actionMoveLeft",
    "actionMoveRight",
    "actionParagraphEnd",
    "actionParagraphStart",
    "actionPreviousEmptyLine",
    "actionNextEmptyLine",
    "actionHardLineBreak",
    "actionBold",
    "actionItalic",
    "actionStrike",
    "actionHeadline1",
    "actionHeadline2",
    "actionHeadline3",
    "actionHeadline4",
    "actionTagSelection",
    "actionRemoveMarkup",
    "actionTrimLines",
};
} // namespace

EditorCommands::EditorCommands(QObject *parent)
    : EditorCommands(nullptr, parent)
{}

EditorCommands::EditorCommands(MenuBuilder *actions, QObject *parent)
    : QObject(parent)
    , m_builder(actions ? actions : new MenuBuilder(nullptr, this))
{
    constexpr int count = int(std::size(kCommandNames));
    static_assert(count == ContextActionTrimLines + 1);
    for (int command = 0; command < count; ++command) {
        QAction *action = m_builder->action(QString::fromLatin1(kCommandNames[command]));
        Q_ASSERT(action);
        connect(action, &QAction::triggered, this,
                [this, command] { trigger(static_cast<Command>(command)); });
        m_ordered.append(action);
    }
    updateEnabled();
}

QString EditorCommands::actionName(Command command)
{
    return QString::fromLatin1(kCommandNames[command]);
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
    return m_builder->actionsIn(QStringLiteral("menuText"));
}

QList<QAction *> EditorCommands::markupActions() const
{
    return m_ordered.mid(InsertBoldTypeStyle, TransformSelectedTextToTag - InsertBoldTypeStyle + 1);
}

QList<QAction *> EditorCommands::cleanUpActions() const
{
    return m_builder->actionsIn(QStringLiteral("contextMenuEditor"));
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
