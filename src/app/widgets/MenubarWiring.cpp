#include "MenubarWiring.h"

#include "AppController.h"
#include "MainWindow.h"
#include "NotesWiring.h"
#include "PreferencesController.h"
#include "menubar/GlobalKeyStatus.h"
#include "menubar/widgets/CapturePanel.h"
#include "menubar/widgets/GlobalShortcutPane.h"
#include "menubar/widgets/MenubarController.h"
#include "menubar/widgets/StatusBarSearch.h"
#include "notes/widgets/NotesTableController.h"
#include "notes/widgets/StatusBarNotePane.h"
#include "widgets/MessageBar.h"

#include <QAction>
#include <QTabWidget>

namespace {
const QString GlobalKeyTopic = QStringLiteral("menubar.globalKey");
}

void wireMenubar(AppController &app)
{
    auto *controller = new MenubarController(app.defaults(), &app);
    controller->setObjectName(QStringLiteral("menubarController"));
    if (NotesTableController *notes = notesController(app)) {
        auto *pane = new StatusBarNotePane(*notes, app.registry());
        //% "Note"
        controller->panel()->addPane(CapturePanel::NotePaneId, qtTrId("CAPTURE_PANEL_NOTE"), pane);
        QObject::connect(controller->panel(), &CapturePanel::aboutToOpen, pane,
                         &StatusBarNotePane::prepare);
    }
    //% "Search"
    controller->panel()->addPane(CapturePanel::SearchPaneId, qtTrId("CAPTURE_PANEL_SEARCH"),
                                 new StatusBarSearch(app.defaults()));

    MainWindow *window = app.window();
    QObject::connect(window->action(QStringLiteral("actionCapturePanel")), &QAction::triggered,
                     controller, &MenubarController::mouseDown);
    QObject::connect(controller, &MenubarController::showAppWindow, window, [window] {
        window->showNormal();
        window->raise();
        window->activateWindow();
    });
    QObject::connect(controller, &MenubarController::showAppPrefs, window,
                     [window] { window->action(QStringLiteral("actionPreferences"))->trigger(); });
    QObject::connect(controller, &MenubarController::terminateApp, window,
                     [window] { window->action(QStringLiteral("actionQuit"))->trigger(); });

    // A combination another program holds would otherwise just do nothing.
    auto report = [bar = window->messageBar()](X11HotKey::Result result,
                                               const QKeySequence &combination) {
        if (result == X11HotKey::Result::Taken || result == X11HotKey::Result::NoKeyCode)
            bar->showMessage(GlobalKeyTopic, MessageBar::Warning,
                             GlobalKeyStatus::describe(result, combination));
        else
            bar->removeMessage(GlobalKeyTopic);
    };
    QObject::connect(&GlobalKeyStatus::instance(), &GlobalKeyStatus::reported, window->messageBar(),
                     report);
    const GlobalKeyStatus &status = GlobalKeyStatus::instance();
    if (status.hasReport())
        report(status.lastResult(), status.lastCombination());
    // On Wayland the desktop's portal answers later, and may have refused the key.
    QObject::connect(&status, &GlobalKeyStatus::portalReported, window->messageBar(),
                     [bar = window->messageBar(), &status] {
                         if (status.hasPortalReport() &&
                             status.lastPortalResult() != PortalGlobalShortcuts::Result::Bound)
                             bar->showMessage(GlobalKeyTopic, MessageBar::Warning,
                                              status.lastPortalText());
                         else if (status.hasPortalReport())
                             bar->removeMessage(GlobalKeyTopic);
                     });
    controller->showItem();
}

MenubarController *menubarController(const AppController &app)
{
    return app.findChild<MenubarController *>(QStringLiteral("menubarController"),
                                              Qt::FindDirectChildrenOnly);
}

void addMenubarPreferencesPane(PreferencesController &preferences, UserDefaults &defaults)
{
    auto *pane = new GlobalShortcutPane(defaults);
    preferences.tabs()->addTab(pane, pane->accessibleName());
}
