#include "AppController.h"
#include "CollcetionViewCalendarAppDelegate.h"
#include "MainWindow.h"
#include "core/Localisation.h"
#include "core/UserDefaults.h"
#include "library/TerminationSignalHandler.h"

#include <QApplication>
#include <QIcon>

#include <unistd.h>

int main(int argc, char *argv[])
{
    // QtWebEngine refuses to start its sandbox as root; the preview shows only local pages
    // with JavaScript off, so running it unsandboxed there is acceptable.
    if (geteuid() == 0)
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Vellox"));
    QApplication::setApplicationDisplayName(QStringLiteral("Vellox"));
    QApplication::setDesktopFileName(QStringLiteral("vellox"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/vellox.svg")));
    Localisation::install(&app);

    UserDefaults &defaults = UserDefaults::standard();
    CollcetionViewCalendarAppDelegate::initialize(defaults);

    CollcetionViewCalendarAppDelegate delegate(defaults);
    AppController controller(defaults);
    delegate.awakeFromNib();
    if (!controller.awakeFromNib())
        return 0;
    delegate.setAppController(&controller);
    delegate.applicationDidFinishLaunching();

    // SIGTERM, SIGINT and SIGHUP end the app like Quit, so pending text is saved first.
    TerminationSignalHandler termination(true);

    controller.window()->show();
    return app.exec();
}
