#include "EntryOperationsWiring.h"

#include "AppController.h"
#include "MainWindow.h"
#include "library/DesktopApplications.h"
#include "library/widgets/EntryController.h"
#include "library/widgets/EntryOperationsController.h"
#include "library/widgets/EntryPrinter.h"
#include "search/widgets/TitleSearchController.h"
#include "widgets/MessageBar.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QListView>
#include <QMenu>
#include <QToolButton>

namespace {

// The applications that open the entry, for the entry the command would act on; the menu is
// hidden when there are none.
void fillOpenWith(QMenu *menu, EntryOperationsController *operations)
{
    menu->clear();
    const QString path = operations->openWithPath(operations->targetFileName());
    const QString own = QCoreApplication::applicationName();
    const QList<DesktopApplication> applications =
        path.isEmpty() ? QList<DesktopApplication>()
                       : DesktopApplications::forMimeType(DesktopApplications::mimeTypeOf(path));
    for (const DesktopApplication &application : applications) {
        if (application.name.isEmpty() || application.name == own)
            continue;
        const QIcon icon = application.iconName.startsWith(QLatin1Char('/'))
                               ? QIcon(application.iconName)
                               : QIcon::fromTheme(application.iconName);
        QAction *item = menu->addAction(icon, application.name);
        item->setData(application.id);
        //% "Open the entry with %1"
        item->setToolTip(qtTrId("OPEN_WITH_ITEM_TIP").arg(application.name));
    }
    menu->menuAction()->setVisible(!menu->isEmpty());
}

// Context-menu commands act on the row under the pointer, which need not be the selected
// one: the row is known while the menu is open.
class ClickedRowTracker : public QObject
{
public:
    ClickedRowTracker(QListView *list, QMenu *openWith, EntryOperationsController *operations)
        : QObject(operations)
        , m_list(list)
        , m_openWith(openWith)
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
        fillOpenWith(m_openWith, m_operations);
        QMenu::exec(m_list->actions(), menuEvent->globalPos(), nullptr, m_list);
        m_operations->setContextRow(-1);
        return true;
    }

private:
    QListView *m_list;
    QMenu *m_openWith;
    EntryOperationsController *m_operations;
};

} // namespace

void wireEntryOperations(AppController &app)
{
    MainWindow *window = app.window();
    auto *operations = new EntryOperationsController(app.entries(), app.registry(),
                                                     window->messageBar(), app.defaults(), &app);
    QMenu *openWith = window->menu(QStringLiteral("menuOpenWith"));
    new ClickedRowTracker(window->entryList(), openWith, operations);
    QObject::connect(openWith, &QMenu::triggered, operations, [operations](QAction *item) {
        operations->editCurrentEntryInAnotherEditor(operations->targetFileName(),
                                                    item->data().toString());
    });
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
