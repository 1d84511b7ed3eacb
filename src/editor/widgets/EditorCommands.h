#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class QAction;
class EnhancedTextView;
class MenuBuilder;

// Connects the editor's commands of the action table to one text view. The actions (texts,
// shortcuts, tooltips) come from the table through a MenuBuilder, the main window's when
// given, so the menus hold these very actions. They are disabled while no view is set or
// the view is not editable.
class EditorCommands : public QObject
{
    Q_OBJECT
public:
    enum Command {
        IndentSelectedText,
        DeIndentSelectedText,
        InsertSelectedTextBeforeSelection,
        InsertSelectedTextAfterSelection,
        InsertSelectedTextLeftToSelection,
        InsertSelectedTextRightToSelection,
        MoveSelectionUp,
        MoveSelectionDown,
        MoveSelectionLeft,
        MoveSelectionRight,
        MoveCursorToTheEndOfParagraph,
        MoveCursorToTheBeginningOfParagraph,
        MoveCursorToPreviousEmptyLine,
        MoveCursorToNextEmptyLine,
        MoveCursorToTheEndOfParagraphAndPerformHardLineBreak,
        InsertBoldTypeStyle,
        InsertItalicTypeStyle,
        InsertStrikeTypeStyle,
        InsertHeadline1,
        InsertHeadline2,
        InsertHeadline3,
        InsertHeadline4,
        TransformSelectedTextToTag,
        ContextActionRemoveMarkup,
        ContextActionTrimLines,
    };
    Q_ENUM(Command)

    explicit EditorCommands(QObject *parent = nullptr);
    // Takes the actions from the given builder (not owned); a null one makes its own.
    explicit EditorCommands(MenuBuilder *actions, QObject *parent = nullptr);

    // The object name of a command's action in the action table.
    static QString actionName(Command command);

    void setTextView(EnhancedTextView *view);
    EnhancedTextView *textView() const { return m_view; }

    QAction *action(Command command) const { return m_ordered.value(command); }
    // The fifteen line and caret commands, in menu order.
    QList<QAction *> lineCommandActions() const;
    // Bold, italic, strike, headlines 1-4, tag wrap.
    QList<QAction *> markupActions() const;
    // Remove markup and trim lines (also in the editor's context menu).
    QList<QAction *> cleanUpActions() const;

private:
    void trigger(Command command);
    void updateEnabled();

    MenuBuilder *m_builder;
    QList<QAction *> m_ordered;
    QPointer<EnhancedTextView> m_view;
    QMetaObject::Connection m_viewConnection;
};
