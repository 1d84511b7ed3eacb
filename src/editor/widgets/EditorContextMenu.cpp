#include "EditorContextMenu.h"

#include "EnhancedTextView.h"
#include "widgets/MenuBuilder.h"

#include <QAction>
#include <QMenu>

void EditorContextMenu::setUp(EnhancedTextView &view, QMenu *menu)
{
    EnhancedTextView *v = &view;
    // The standard entries that change text go through this view's history.
    for (QAction *action : menu->actions()) {
        const QString name = action->objectName();
        if (name == u"edit-undo") {
            action->disconnect();
            action->setEnabled(v->canUndo() && v->isEditable());
            QObject::connect(action, &QAction::triggered, v, &EnhancedTextView::undo);
        } else if (name == u"edit-redo") {
            action->disconnect();
            action->setEnabled(v->canRedo() && v->isEditable());
            QObject::connect(action, &QAction::triggered, v, &EnhancedTextView::redo);
        } else if (name == u"edit-cut") {
            action->disconnect();
            QObject::connect(action, &QAction::triggered, v, &EnhancedTextView::cut);
        } else if (name == u"edit-delete") {
            action->disconnect();
            QObject::connect(action, &QAction::triggered, v, [v] {
                const auto s = v->selectedRange();
                if (s.second > 0)
                    v->replaceAsTyped(s, QString(), QStringLiteral("UNDO_DELETE"));
            });
        }
    }
    // The clean-up items come from the action table, made afresh for each menu.
    if (menu->findChild<QAction *>(QStringLiteral("actionRemoveMarkup")))
        return;
    QAction *first = menu->actions().value(0);
    const QList<QAction *> cleanUp =
        MenuBuilder::createContextActions(QStringLiteral("contextMenuEditor"), menu);
    for (QAction *action : cleanUp) {
        const QString name = action->objectName();
        if (name == u"actionRemoveMarkup")
            QObject::connect(action, &QAction::triggered, v,
                             &EnhancedTextView::contextActionRemoveMarkup);
        else if (name == u"actionTrimLines")
            QObject::connect(action, &QAction::triggered, v,
                             &EnhancedTextView::contextActionTrimLines);
        action->setEnabled(v->isEditable());
        menu->insertAction(first, action);
    }
    menu->insertSeparator(first);
}
