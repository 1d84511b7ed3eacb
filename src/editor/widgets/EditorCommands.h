#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>

class QAction;
class EnhancedTextView;

// The editor's menu commands as ready-made actions (texts, shortcuts, accessible names,
// tooltips) acting on one text view, so the main window only adds them to its menus. The
// actions are disabled while no view is set or the view is not editable.
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

    void setTextView(EnhancedTextView *view);
    EnhancedTextView *textView() const { return m_view; }

    QAction *action(Command command) const { return m_actions.value(command); }
    // The fifteen line and caret commands, in menu order.
    QList<QAction *> lineCommandActions() const;
    // Bold, italic, strike, headlines 1-4, tag wrap.
    QList<QAction *> markupActions() const;
    // Remove markup and trim lines (also in the editor's context menu).
    QList<QAction *> cleanUpActions() const;

private:
    void add(Command command, const char *name, const char *textKey, const char *tipKey,
             const QKeySequence &shortcut);
    void trigger(Command command);
    void updateEnabled();

    QHash<int, QAction *> m_actions;
    QList<QAction *> m_ordered;
    QPointer<EnhancedTextView> m_view;
    QMetaObject::Connection m_viewConnection;
};
