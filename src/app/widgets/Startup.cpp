#include "Startup.h"

#include "AppController.h"
#include "CollcetionViewCalendarAppDelegate.h"
#include "MainWindow.h"
#include "NotesWiring.h"
#include "SingleInstance.h"
#include "core/Localisation.h"
#include "core/UserDefaults.h"
#include "library/TerminationSignalHandler.h"

#include <QApplication>
#include <QIcon>
#include <QLineEdit>

#include <unistd.h>

#include <utility>

Startup::Startup(UserDefaults &defaults)
    : m_defaults(defaults)
{}

Startup::~Startup()
{
    // The window goes before the delegate that refers to it.
    m_controller.reset();
    m_delegate.reset();
}

void Startup::prepareProcess()
{
    // QtWebEngine refuses to start its sandbox as root; the preview shows only local pages
    // with JavaScript off, so running it unsandboxed there is acceptable.
    if (geteuid() == 0)
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
}

void Startup::configureApplication(QApplication &app)
{
    QApplication::setApplicationName(QStringLiteral("Vellox"));
    QApplication::setApplicationDisplayName(QStringLiteral("Vellox"));
    QApplication::setDesktopFileName(QStringLiteral("vellox"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/vellox.svg")));
    Localisation::install(&app);
}

bool Startup::launch()
{
    // SIGTERM, SIGINT and SIGHUP end the app like Quit, so pending text is saved first. Set
    // up before anything else: a signal that arrives during the launch waits for the event
    // loop instead of killing the process half-way.
    m_termination = std::make_unique<TerminationSignalHandler>(true);
    CollcetionViewCalendarAppDelegate::initialize(m_defaults);
    m_delegate = std::make_unique<CollcetionViewCalendarAppDelegate>(m_defaults);
    m_controller = std::make_unique<AppController>(m_defaults);
    m_delegate->awakeFromNib();
    if (!m_controller->awakeFromNib())
        return false;
    m_delegate->setAppController(m_controller.get());
    m_delegate->applicationDidFinishLaunching();

    // Nothing is open yet: the window starts where an entry begins, at its title.
    m_controller->window()->titleField()->setFocus();
    m_controller->window()->show();
    // The window is on screen before the notebook is listed: a notebook of thousands of
    // entries fills it a moment later instead of keeping it from appearing.
    m_controller->window()->repaint();
    m_controller->startTheGame();
    m_launched = true;
    openArguments(std::exchange(m_pendingArguments, {}), false);
    return true;
}

void Startup::openArguments(const QStringList &arguments, bool fromLaterStart)
{
    if (!m_launched || !m_controller) {
        m_pendingArguments += arguments;
        return;
    }
    if (fromLaterStart) {
        MainWindow *window = m_controller->window();
        window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
        window->show();
        window->raise();
        window->activateWindow();
    }
    openNotesLinks(*m_controller, arguments);
}

int Startup::run(int argc, char **argv)
{
    prepareProcess();
    QApplication app(argc, argv);
    configureApplication(app);
    // A later start hands its arguments (a captured link) to the running Vellox and ends.
    SingleInstance instance;
    if (instance.handOverOrListen(app.arguments().mid(1)))
        return 0;
    Startup startup(UserDefaults::standard());
    startup.openArguments(app.arguments().mid(1), false);
    QObject::connect(
        &instance, &SingleInstance::argumentsReceived, &app,
        [&startup](const QStringList &arguments) { startup.openArguments(arguments, true); });
    if (!startup.launch())
        return 0;
    return app.exec();
}
