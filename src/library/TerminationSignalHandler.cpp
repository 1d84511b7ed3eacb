#include "TerminationSignalHandler.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace {
int g_pipe[2] = {-1, -1};

void onSignal(int number)
{
    const unsigned char byte = static_cast<unsigned char>(number);
    // Only async-signal-safe work here; the rest happens in the event loop.
    [[maybe_unused]] const ssize_t written = ::write(g_pipe[0], &byte, 1);
}

void install(int number, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    sigaction(number, &action, nullptr);
}
} // namespace

TerminationSignalHandler::TerminationSignalHandler(bool quitApplication, QObject *parent)
    : QObject(parent)
    , m_quit(quitApplication)
{
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, g_pipe) != 0)
        return;
    m_notifier = new QSocketNotifier(g_pipe[1], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &TerminationSignalHandler::readSignal);
    install(SIGTERM, onSignal);
    install(SIGINT, onSignal);
    install(SIGHUP, onSignal);
}

TerminationSignalHandler::~TerminationSignalHandler()
{
    install(SIGTERM, SIG_DFL);
    install(SIGINT, SIG_DFL);
    install(SIGHUP, SIG_DFL);
    if (g_pipe[0] >= 0) {
        ::close(g_pipe[0]);
        ::close(g_pipe[1]);
        g_pipe[0] = g_pipe[1] = -1;
    }
}

void TerminationSignalHandler::readSignal()
{
    unsigned char byte = 0;
    if (::read(g_pipe[1], &byte, 1) != 1)
        return;
    Q_EMIT terminationRequested(int(byte));
    if (m_quit)
        QCoreApplication::quit();
}
