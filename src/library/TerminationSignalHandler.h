#pragma once

#include <QObject>

class QSocketNotifier;

// Turns SIGTERM, SIGINT and SIGHUP into a Qt signal on the main thread, so a session logout
// or `kill` ends the application through its ordinary quit path (pending saves included).
class TerminationSignalHandler : public QObject
{
    Q_OBJECT
public:
    // Only one may exist; by default a termination request quits the application.
    explicit TerminationSignalHandler(bool quitApplication = true, QObject *parent = nullptr);
    ~TerminationSignalHandler() override;

Q_SIGNALS:
    void terminationRequested(int signalNumber);

private:
    void readSignal();

    QSocketNotifier *m_notifier = nullptr;
    bool m_quit = true;
};
