#include "ChildProcess.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QProcess>

#include <signal.h>
#include <unistd.h>

ChildProcess::Result ChildProcess::run(const QString &program, const QStringList &arguments,
                                       const QString &workingFolder, const CancelFlag &cancel,
                                       int timeoutMs, const Tick &tick,
                                       const QStringList &environment)
{
    Result result;
    if (cancel.isRaised()) {
        result.outcome = Cancelled;
        return result;
    }
    QProcess process;
    process.setWorkingDirectory(workingFolder);
    process.setProcessChannelMode(QProcess::SeparateChannels);
    if (!environment.isEmpty()) {
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        for (const QString &variable : environment) {
            const qsizetype equals = variable.indexOf(QLatin1Char('='));
            variables.insert(variable.left(equals), variable.mid(equals + 1));
        }
        process.setProcessEnvironment(variables);
    }
    // A group of its own, so stopping it also stops what it started (LibreOffice's launcher
    // runs the office in a child process).
    process.setChildProcessModifier([] { ::setpgid(0, 0); });
    process.start(program, arguments);
    if (!process.waitForStarted()) {
        result.outcome = NotStarted;
        return result;
    }
    process.closeWriteChannel();
    const QDeadlineTimer deadline(timeoutMs);
    while (!process.waitForFinished(200)) {
        // Drain the pipes so a talkative child never blocks on a full one.
        result.output += process.readAllStandardOutput();
        result.errors += process.readAllStandardError();
        if (process.state() == QProcess::NotRunning)
            break;
        if (cancel.isRaised() || deadline.hasExpired()) {
            result.outcome = cancel.isRaised() ? Cancelled : TimedOut;
            if (process.processId() > 0)
                ::kill(-pid_t(process.processId()), SIGKILL);
            process.kill();
            process.waitForFinished(5000);
            return result;
        }
        if (tick)
            tick();
    }
    result.output += process.readAllStandardOutput();
    result.errors += process.readAllStandardError();
    result.exitCode = process.exitCode();
    result.outcome = process.exitStatus() == QProcess::NormalExit ? Finished : Crashed;
    return result;
}

QString ChildProcess::packageFor(const QString &program)
{
    const QString name = QFileInfo(program).fileName();
    if (name == QLatin1String("soffice"))
        return QStringLiteral("libreoffice-writer-nogui");
    if (name == QLatin1String("java"))
        return QStringLiteral("default-jre-headless");
    return name;
}
