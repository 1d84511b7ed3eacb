#include "CollcetionViewCalendarAppDelegate.h"

#include "AppController.h"
#include "MainWindow.h"
#include "MenubarWiring.h"
#include "PreferencesController.h"
#include "core/AppPaths.h"
#include "core/UserDefaults.h"
#include "render/StyleFolderSeeder.h"

#include <QAction>
#include <QApplication>
#include <QFileInfo>
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
    QAction *preferences = window->action(QStringLiteral("actionPreferences"));
    preferences->setMenuRole(QAction::PreferencesRole);
    connect(preferences, &QAction::triggered, this,
            &CollcetionViewCalendarAppDelegate::showPreferences);
    connect(window->settingsButton(), &QToolButton::clicked, this,
            &CollcetionViewCalendarAppDelegate::showPreferences);
    QAction *quit = window->action(QStringLiteral("actionQuit"));
    quit->setMenuRole(QAction::QuitRole);
    connect(quit, &QAction::triggered, this, [window] {
        // The main window may refuse to close: its entry's text could not be saved and the
        // user chose to stay. Then nothing quits.
        if (window->close())
            QApplication::closeAllWindows();
        if (!window->isVisible())
            QMetaObject::invokeMethod(qApp, &QApplication::quit, Qt::QueuedConnection);
    });
}

void CollcetionViewCalendarAppDelegate::applicationDidFinishLaunching()
{
    m_statusBarPaneSelectionPref = m_defaults.value(Settings::StatusBarPaneSelectionPref);
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
    if (!m_preferences) {
        m_preferences = new PreferencesController(m_defaults);
        addMenubarPreferencesPane(*m_preferences, m_defaults);
    }
    return m_preferences;
}

void CollcetionViewCalendarAppDelegate::showPreferences()
{
    preferences()->showWindow();
}
