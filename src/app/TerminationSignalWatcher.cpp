#include "TerminationSignalWatcher.h"

#include <QSocketNotifier>

#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace {
int g_fds[2] = {-1, -1};
}

TerminationSignalWatcher::TerminationSignalWatcher(QObject *parent)
    : QObject(parent)
{
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, g_fds) != 0)
        return;
    m_notifier = new QSocketNotifier(g_fds[1], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        int number = 0;
        if (::read(g_fds[1], &number, sizeof(number)) == sizeof(number))
            Q_EMIT terminationRequested(number);
    });
    struct sigaction action = {};
    action.sa_handler = &TerminationSignalWatcher::handle;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGHUP, &action, nullptr);
}

TerminationSignalWatcher::~TerminationSignalWatcher()
{
    signal(SIGTERM, SIG_DFL);
    signal(SIGINT, SIG_DFL);
    signal(SIGHUP, SIG_DFL);
}

void TerminationSignalWatcher::handle(int signalNumber)
{
    // Only async-signal-safe work here: hand the number to the event loop.
    const ssize_t written = ::write(g_fds[0], &signalNumber, sizeof(signalNumber));
    (void)written;
}
