#pragma once

#include <QString>
#include <QStringList>

#include <atomic>
#include <functional>
#include <memory>

// Shared between the export window and the job running in its worker: once raised, running
// child processes are stopped and the job winds down.
class CancelFlag
{
public:
    void raise() { m_raised->store(true); }
    bool isRaised() const { return m_raised->load(); }

private:
    std::shared_ptr<std::atomic_bool> m_raised = std::make_shared<std::atomic_bool>(false);
};

// One child process run to its end on the calling thread, stopped early when the export is
// cancelled or the time runs out.
struct ChildProcess
{
    enum Outcome { Finished, NotStarted, Cancelled, TimedOut, Crashed };

    struct Result
    {
        Outcome outcome = NotStarted;
        int exitCode = -1;
        QByteArray output;
        QByteArray errors;
        bool ok() const { return outcome == Finished && exitCode == 0; }
    };

    // Called about every 200 ms while the child runs (the export counts finished files).
    using Tick = std::function<void()>;

    // environment: variables set for the child on top of ours.
    static Result run(const QString &program, const QStringList &arguments,
                      const QString &workingFolder, const CancelFlag &cancel, int timeoutMs,
                      const Tick &tick = {}, const QStringList &environment = {});

    // The Debian package to install for a program the export needs.
    static QString packageFor(const QString &program);
};
