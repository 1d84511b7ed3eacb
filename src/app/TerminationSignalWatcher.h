#pragma once

#include <QObject>

class QSocketNotifier;

// Turns SIGTERM, SIGINT and SIGHUP into a Qt signal on the main thread, so a session logout or
// `kill` ends the app through the same path as Quit: pending text is saved first.
class TerminationSignalWatcher : public QObject
{
    Q_OBJECT
public:
    explicit TerminationSignalWatcher(QObject *parent = nullptr);
    ~TerminationSignalWatcher() override;

Q_SIGNALS:
    void terminationRequested(int signalNumber);

private:
    static void handle(int signalNumber);
    QSocketNotifier *m_notifier = nullptr;
};
