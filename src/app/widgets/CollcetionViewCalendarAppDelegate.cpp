#include "CollcetionViewCalendarAppDelegate.h"

#include "AppController.h"
#include "MainWindow.h"
#include "PreferencesController.h"
#include "core/AppPaths.h"
#include "core/UserDefaults.h"
#include "render/StyleFolderSeeder.h"

#include <QAction>
#include <QApplication>
#include <QFileInfo>
#include <QKeySequence>
#include <QMenu>
#include <QToolButton>

CollcetionViewCalendarAppDelegate::CollcetionViewCalendarAppDelegate(UserDefaults &defaults,
                                                                     QObject *parent)
    : QObject(parent)
    , m_defaults(defaults)
{}

CollcetionViewCalendarAppDelegate::~CollcetionViewCalendarAppDelegate()
{
    delete m_preferences;
}

void CollcetionViewCalendarAppDelegate::initialize(UserDefaults &defaults)
{
    const QString styles = AppPaths::resource(QStringLiteral("styles/Standard.css"));
    StyleFolderSeeder::seed(AppPaths::cssStyleFolder(),
                            styles.isEmpty() ? AppPaths::resource(QStringLiteral("styles"))
                                             : QFileInfo(styles).path());
    defaults.registerDefaults(UserDefaults::defaultsTable());
}

void CollcetionViewCalendarAppDelegate::awakeFromNib()
{
    // The find items use the editor's own find bar; nothing to rewire here.
}

void CollcetionViewCalendarAppDelegate::setAppController(AppController *controller)
{
    m_controller = controller;
    MainWindow *window = controller->window();
    QMenu *file = window->fileMenu();
    QAction *preferences = file->addAction(qtTrId("MENU_PREFERENCES"));
    preferences->setShortcut(QKeySequence::Preferences);
    if (preferences->shortcut().isEmpty())
        preferences->setShortcut(QKeySequence(QStringLiteral("Ctrl+,")));
    preferences->setMenuRole(QAction::PreferencesRole);
    preferences->setToolTip(qtTrId("MENU_PREFERENCES_TIP"));
    connect(preferences, &QAction::triggered, this,
            &CollcetionViewCalendarAppDelegate::showPreferences);
    connect(window->settingsButton(), &QToolButton::clicked, this,
            &CollcetionViewCalendarAppDelegate::showPreferences);
    file->addSeparator();
    QAction *quit = file->addAction(qtTrId("MENU_QUIT"));
    quit->setShortcut(QKeySequence::Quit);
    quit->setMenuRole(QAction::QuitRole);
    quit->setToolTip(qtTrId("MENU_QUIT_TIP"));
    connect(quit, &QAction::triggered, qApp, &QApplication::closeAllWindows);
    connect(quit, &QAction::triggered, qApp, &QApplication::quit, Qt::QueuedConnection);
}

void CollcetionViewCalendarAppDelegate::applicationDidFinishLaunching()
{
    m_statusBarPaneSelectionPref =
        m_defaults.boolForKey(QStringLiteral("StatusBarPaneSelectionPref"));
    if (m_controller)
        m_controller->tickCurrentMarkupLanguage();
    connect(qApp, &QGuiApplication::applicationStateChanged, this,
            [this](Qt::ApplicationState state) {
                if (state == Qt::ApplicationActive)
                    applicationDidBecomeActive();
            });
}

void CollcetionViewCalendarAppDelegate::applicationDidBecomeActive()
{
    if (!m_controller || !m_controller->window())
        return;
    MainWindow *window = m_controller->window();
    // Coming back through another of our windows (preferences, a panel) keeps that one up.
    QWidget *active = QApplication::activeWindow();
    if (active && active != window)
        return;
    if (window->isVisible() && !window->isActiveWindow()) {
        window->raise();
        window->activateWindow();
    }
}

PreferencesController *CollcetionViewCalendarAppDelegate::preferences()
{
    if (!m_preferences)
        m_preferences = new PreferencesController(m_defaults);
    return m_preferences;
}

void CollcetionViewCalendarAppDelegate::showPreferences()
{
    preferences()->showWindow();
}
