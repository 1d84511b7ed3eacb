#pragma once

#include <QStringList>

#include <memory>

class AppController;
class CollcetionViewCalendarAppDelegate;
class QApplication;
class TerminationSignalHandler;
class UserDefaults;

// The launch of the application, from the settings defaults to the shown main window. main()
// runs it through run(); tests run launch() in their own application object.
class Startup
{
public:
    explicit Startup(UserDefaults &defaults);
    ~Startup();
    Startup(const Startup &) = delete;
    Startup &operator=(const Startup &) = delete;

    // The whole process: application object, launch, event loop. Returns the exit status.
    static int run(int argc, char **argv);
    // What must be set before the application object exists.
    static void prepareProcess();
    // Names, icon and translations of the application object.
    static void configureApplication(QApplication &app);

    // Registers the defaults, seeds the style folder, builds the delegate and the main
    // window (running the first-run panel when no notebook exists), ticks the markup
    // language and shows the window. False when the first run was cancelled: the process
    // then ends with status 0 and nothing was written.
    bool launch();

    // What a start was given (its own or one handed over by a later start): bookmarklet
    // links become quick notes. A later start's arguments bring the window to the front.
    // Held until the launch is done.
    void openArguments(const QStringList &arguments, bool fromLaterStart);

    AppController *controller() const { return m_controller.get(); }
    CollcetionViewCalendarAppDelegate *delegate() const { return m_delegate.get(); }

private:
    UserDefaults &m_defaults;
    std::unique_ptr<CollcetionViewCalendarAppDelegate> m_delegate;
    std::unique_ptr<AppController> m_controller;
    std::unique_ptr<TerminationSignalHandler> m_termination;
    QStringList m_pendingArguments;
    bool m_launched = false;
};
