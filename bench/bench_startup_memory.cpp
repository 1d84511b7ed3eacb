// Memory of a freshly started Vellox with the preview hidden, as a user sees it in a process
// monitor: the resident memory of the application and every process it started (the PHP
// converter, the web engine's helpers), summed once the application has gone idle.
// Usage: bench_startup_memory [path/to/vellox]; without an argument the vellox binary of the
// same build tree is used. Exits with 1 when a web engine process was started although the
// preview was never shown.

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>

#include <unistd.h>

namespace {

struct ProcessInfo
{
    qint64 parent = 0;
    qint64 cpuTicks = 0;
    qint64 rssKb = 0;
    QString name;
};

QByteArray readProcFile(qint64 pid, const char *file)
{
    QFile in(QStringLiteral("/proc/%1/%2").arg(pid).arg(QLatin1String(file)));
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
}

// Every process on the machine, by id.
QMap<qint64, ProcessInfo> allProcesses()
{
    QMap<qint64, ProcessInfo> processes;
    const QStringList ids = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString &id : ids) {
        bool isNumber = false;
        const qint64 pid = id.toLongLong(&isNumber);
        if (!isNumber)
            continue;
        const QByteArray stat = readProcFile(pid, "stat");
        const qsizetype close = stat.lastIndexOf(')');
        if (close < 0)
            continue;
        // After the name: state, ppid, ..., utime (14th field), stime (15th).
        const QList<QByteArray> fields = stat.mid(close + 2).split(' ');
        if (fields.size() < 13)
            continue;
        ProcessInfo info;
        info.parent = fields[1].toLongLong();
        info.cpuTicks = fields[11].toLongLong() + fields[12].toLongLong();
        const QList<QByteArray> cmdline = readProcFile(pid, "cmdline").split('\0');
        info.name = QFileInfo(QString::fromLocal8Bit(cmdline.value(0))).fileName();
        for (const QByteArray &line : readProcFile(pid, "status").split('\n')) {
            if (line.startsWith("VmRSS:"))
                info.rssKb = line.mid(6).trimmed().split(' ').value(0).toLongLong();
        }
        processes.insert(pid, info);
    }
    return processes;
}

QMap<qint64, ProcessInfo> processTree(qint64 root)
{
    const QMap<qint64, ProcessInfo> all = allProcesses();
    QMap<qint64, ProcessInfo> tree;
    QList<qint64> todo = {root};
    while (!todo.isEmpty()) {
        const qint64 pid = todo.takeFirst();
        if (!all.contains(pid))
            continue;
        tree.insert(pid, all.value(pid));
        for (auto it = all.cbegin(); it != all.cend(); ++it) {
            if (it.value().parent == pid)
                todo << it.key();
        }
    }
    return tree;
}

qint64 treeTicks(const QMap<qint64, ProcessInfo> &tree)
{
    qint64 ticks = 0;
    for (const ProcessInfo &info : tree)
        ticks += info.cpuTicks;
    return ticks;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    const QString vellox =
        argc > 1 ? QString::fromLocal8Bit(argv[1])
                 : QCoreApplication::applicationDirPath() + QStringLiteral("/../src/app/vellox");
    if (!QFileInfo(vellox).isExecutable()) {
        out << "no vellox binary at " << vellox << "; pass its path as the argument" << Qt::endl;
        return 2;
    }

    // A home with one notebook holding one entry, so the start-up loads and selects it.
    QTemporaryDir home;
    const QString notebook = home.path() + QStringLiteral("/Diary");
    QDir().mkpath(notebook);
    QFile entry(notebook + QStringLiteral("/Today.txt"));
    if (entry.open(QIODevice::WriteOnly))
        entry.write(QByteArray("# Today\n\nA walk by the *harbour*.\n\n- bread\n- coffee\n\n")
                        .repeated(2000));
    entry.close();
    {
        QDir().mkpath(home.path() + QStringLiteral("/.config/Vellox"));
        QSettings settings(home.path() + QStringLiteral("/.config/Vellox/Vellox.conf"),
                           QSettings::IniFormat);
        settings.beginWriteArray(QStringLiteral("DiarySaveDestinations"));
        settings.setArrayIndex(0);
        settings.setValue(QStringLiteral("DiaryName"), QStringLiteral("Diary"));
        settings.setValue(QStringLiteral("DiaryDocumentPath"), notebook);
        settings.endArray();
    }

    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), home.path());
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home.path() + QStringLiteral("/.config"));
    environment.insert(QStringLiteral("XDG_DATA_HOME"),
                       home.path() + QStringLiteral("/.local/share"));
    environment.insert(QStringLiteral("XDG_CACHE_HOME"), home.path() + QStringLiteral("/.cache"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("QTWEBENGINE_DISABLE_SANDBOX"), QStringLiteral("1"));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    QElapsedTimer clock;
    clock.start();
    process.start(vellox, {});
    if (!process.waitForStarted(10000)) {
        out << "cannot start " << vellox << ": " << process.errorString() << Qt::endl;
        return 2;
    }

    // Idle: the whole tree used under 3 CPU ticks in the last second, after at least 2 s.
    const qint64 pid = process.processId();
    const long ticksPerSecond = sysconf(_SC_CLK_TCK);
    QList<qint64> history;
    QMap<qint64, ProcessInfo> tree;
    while (clock.elapsed() < 60000 && process.state() == QProcess::Running) {
        QThread::msleep(250);
        tree = processTree(pid);
        history << treeTicks(tree);
        if (clock.elapsed() > 2000 && history.size() > 4 &&
            history.last() - history.at(history.size() - 5) < 3 * ticksPerSecond / 100)
            break;
    }
    if (process.state() != QProcess::Running) {
        out << "vellox ended on its own with status " << process.exitCode() << Qt::endl;
        return 2;
    }

    qint64 totalKb = 0;
    bool webEngine = false;
    for (auto it = tree.cbegin(); it != tree.cend(); ++it) {
        out << "  " << it.key() << " " << it.value().name << ": " << it.value().rssKb / 1024
            << " MB" << Qt::endl;
        totalKb += it.value().rssKb;
        webEngine = webEngine || it.value().name.contains(QLatin1String("QtWebEngineProcess"));
    }
    out << "idle after " << clock.elapsed()
        << " ms; process tree resident memory: " << totalKb / 1024 << " MB in " << tree.size()
        << " processes (goal < 150 MB)" << Qt::endl;
    out << "web engine process with the preview hidden: " << (webEngine ? "yes" : "none")
        << Qt::endl;

    process.terminate();
    if (!process.waitForFinished(10000)) {
        process.kill();
        process.waitForFinished(5000);
    }
    return webEngine ? 1 : 0;
}
