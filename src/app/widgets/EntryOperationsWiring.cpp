#include "EntryOperationsWiring.h"

#include "AppController.h"
#include "MainWindow.h"
#include "library/widgets/EntryController.h"
#include "library/widgets/EntryOperationsController.h"
#include "library/widgets/EntryPrinter.h"
#include "search/widgets/TitleSearchController.h"
#include "widgets/MessageBar.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QListView>
#include <QMenu>
#include <QToolButton>

namespace {

// Context-menu commands act on the row under the pointer, which need not be the selected
// one: the row is known while the menu is open.
class ClickedRowTracker : public QObject
{
public:
    ClickedRowTracker(QListView *list, EntryOperationsController *operations)
        : QObject(operations)
        , m_list(list)
        , m_operations(operations)
    {
        list->installEventFilter(this);
        list->viewport()->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::ContextMenu)
            return QObject::eventFilter(watched, event);
        auto *menuEvent = static_cast<QContextMenuEvent *>(event);
        QPoint pos = menuEvent->pos();
        if (watched == m_list)
            pos = m_list->viewport()->mapFrom(m_list, pos);
        const QModelIndex index = m_list->indexAt(pos);
        const int row = index.isValid() ? index.row() : m_list->currentIndex().row();
        if (row < 0)
            return true;
        m_operations->setContextRow(row);
        QMenu::exec(m_list->actions(), menuEvent->globalPos(), nullptr, m_list);
        m_operations->setContextRow(-1);
        return true;
    }

private:
    QListView *m_list;
    EntryOperationsController *m_operations;
};

} // namespace

void wireEntryOperations(AppController &app)
{
    MainWindow *window = app.window();
    auto *operations = new EntryOperationsController(app.entries(), app.registry(),
                                                     window->messageBar(), app.defaults(), &app);
    new ClickedRowTracker(window->entryList(), operations);
    auto on = [window, operations](const char *name, auto slot) {
        QObject::connect(window->action(QString::fromLatin1(name)), &QAction::triggered, operations,
                         slot);
    };
    on("actionNextEntry", [operations] { operations->selectNextItemInTable(); });
    on("actionPreviousEntry", [operations] { operations->selectPreviousItemInTable(); });
    on("actionInsertDateTime", [operations] { operations->insertCurrentDateAndTime(); });
    on("actionOpenInSideEditor",
       [operations] { operations->tableviewContextOpenFile(operations->targetFileName()); });
    on("actionPrint", [&app] {
        EntryPrinter::printTheText(app.window(), app.entries()->editor().string(), app.defaults());
    });
    on("actionRenameEntry", [operations] { operations->tableviewContextRenameFile(); });
    on("actionDeleteEntry",
       [operations] { operations->deleteEntry(operations->targetFileName()); });
    on("actionShowInFileBrowser",
       [operations] { operations->showFileInFileBrowser(operations->targetFileName()); });
    on("actionShowAttachmentsInFileBrowser",
       [operations] { operations->showAttachmentsInFileBrowser(operations->targetFileName()); });
    QObject::connect(window->moveToMenu(), &QMenu::triggered, operations,
                     [operations](QAction *item) {
                         operations->moveEntry(operations->targetFileName(), item->data().toInt());
                     });
    QObject::connect(
        window->duplicateToMenu(), &QMenu::triggered, operations, [operations](QAction *item) {
            operations->duplicateEntry(operations->targetFileName(), item->data().toInt());
        });
    QToolButton *remove = window->removeEntryButton();
    remove->setEnabled(true);
    QObject::connect(remove, &QToolButton::clicked, operations, [operations, &app] {
        operations->deleteEntry(app.entries()->selectedFileName());
    });

    new TitleSearchController(app.entries(), window->titleField(), app.defaults(), &app);
}
