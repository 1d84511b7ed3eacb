// Time from entry text to HTML for every markup language, through the real converters and
// the long-lived PHP worker, once it has started, as the export uses them on the main thread.
// Prints the median of several runs for a 2 KB and a 200 KB entry; then the same for Markdown
// on the preview's own conversion thread, which has a worker of its own.

#include "render/MarkupLanguage.h"
#include "render/PhpConverterWorker.h"
#include "render/PreviewConversionQueue.h"
#include "render/TaskController.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

namespace {

// One passage of a typical diary entry in each language: prose with some emphasis, a link,
// a list and now and then a heading.
QString passage(int language)
{
    switch (language) {
    case 2:
        return QStringLiteral(
            "h2. Tuesday\n\nThe morning was *quiet* and I walked down to the _harbour_ where the "
            "boats were still tied up. \"Notes\":http://example.org from yesterday.\n\n"
            "* bread\n* coffee\n\n");
    case 3:
        return QStringLiteral(
            "== Tuesday ==\nThe morning was '''quiet''' and I walked down to the ''harbour'' "
            "where the boats were still tied up. [http://example.org Notes] from yesterday.\n\n"
            "* bread\n* coffee\n\n");
    case 4:
        return QStringLiteral(
            "[b]Tuesday[/b]\nThe morning was [i]quiet[/i] and I walked down to the [u]harbour"
            "[/u] where the boats were still tied up. [url=http://example.org]Notes[/url] from "
            "yesterday.\n[list][*]bread[*]coffee[/list]\n\n");
    case 6:
        return QStringLiteral(
            "<h2>Tuesday</h2>\n<p>The morning was <em>quiet</em> and I walked down to the "
            "<strong>harbour</strong> where the boats were still tied up. <a "
            "href=\"http://example.org\">Notes</a> from yesterday.</p>\n<ul><li>bread</li>"
            "<li>coffee</li></ul>\n");
    default:
        return QStringLiteral(
            "## Tuesday\n\nThe morning was *quiet* and I walked down to the **harbour** where "
            "the boats were still tied up -- \"calm\" as ever... [Notes](http://example.org) "
            "from yesterday.\n\n- bread\n- coffee\n\n");
    }
}

QString entryOfSize(int language, int bytes)
{
    QString text;
    while (text.toUtf8().size() < bytes)
        text += passage(language);
    return text.left(bytes);
}

// CPU time so far of the running PHP worker (to the nanosecond, from the scheduler) and of
// the children it has reaped (in clock ticks).
double workerCpuMs()
{
    const qint64 pid = PhpConverterWorker::instance()->processId();
    if (pid == 0)
        return 0;
    QFile schedstat(QStringLiteral("/proc/%1/schedstat").arg(pid));
    QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!schedstat.open(QIODevice::ReadOnly) || !stat.open(QIODevice::ReadOnly))
        return 0;
    const double ownMs = schedstat.readAll().split(' ').value(0).toDouble() / 1e6;
    const QByteArray line = stat.readAll();
    // The fields after the command name, which may hold blanks, start at the state (field 3).
    const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
    if (fields.size() < 15)
        return ownMs;
    const double childTicks = fields[16 - 3].toDouble() + fields[17 - 3].toDouble();
    return ownMs + childTicks * 1e3 / double(sysconf(_SC_CLK_TCK));
}

// CPU time of the converter processes, which a busy machine does not inflate the way it
// inflates wall time: the finished ones and the worker.
double childCpuMs()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    return (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1e3 +
           (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e3 + workerCpuMs();
}

struct Timing
{
    double wallMs = -1;
    double cpuMs = -1;
};

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

Timing measure(int language, const QString &text, int runs)
{
    std::vector<double> wall;
    std::vector<double> cpu;
    for (int i = 0; i < runs; ++i) {
        const double cpuBefore = childCpuMs();
        QElapsedTimer timer;
        timer.start();
        const QString html = TaskController::convertStringWithMarkUpLanguage(language, text);
        wall.push_back(timer.nsecsElapsed() / 1e6);
        cpu.push_back(childCpuMs() - cpuBefore);
        if (html.isEmpty())
            return Timing();
    }
    return Timing{median(wall), median(cpu)};
}

} // namespace

int main(int argc, char *argv[])
{
    // The MultiMarkdown script and PHP's compiled scripts are kept per user: keep them out
    // of the user's own folders.
    QTemporaryDir home;
    qputenv("XDG_DATA_HOME", home.path().toUtf8());
    qputenv("XDG_CACHE_HOME", home.path().toUtf8());
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);

    out << "median ms per conversion (wall / CPU of the converter), 21 runs at 2 KB, 7 at 200 KB\n";
    out << "language        2 KB wall    2 KB cpu  200 KB wall  200 KB cpu\n";
    for (int language = 1; language <= MarkupLanguage::Count; ++language) {
        // The first run unpacks MultiMarkdown, fills PHP's compile cache and starts the worker
        // with this language's converter loaded, as the preview's first rebuild does.
        TaskController::convertStringWithMarkUpLanguage(language, passage(language));
        const Timing small = measure(language, entryOfSize(language, 2 * 1024), 21);
        const Timing large = measure(language, entryOfSize(language, 200 * 1024), 7);
        out << QStringLiteral("%1 %2 %3 %4 %5\n")
                   .arg(MarkupLanguage::displayName(language), -14)
                   .arg(small.wallMs, 11, 'f', 1)
                   .arg(small.cpuMs, 11, 'f', 1)
                   .arg(large.wallMs, 12, 'f', 1)
                   .arg(large.cpuMs, 11, 'f', 1);
        out.flush();
    }

    PreviewConversionQueue queue;
    const auto onThread = [&queue](const QString &text, int runs) {
        std::vector<double> wall;
        for (int i = 0; i < runs; ++i) {
            QSignalSpy done(&queue, &PreviewConversionQueue::converted);
            QElapsedTimer timer;
            timer.start();
            queue.request(MarkupLanguage::Markdown, text);
            if (!done.wait(180000))
                return -1.0;
            wall.push_back(timer.nsecsElapsed() / 1e6);
        }
        return median(wall);
    };
    onThread(passage(MarkupLanguage::Markdown), 1);
    const double small = onThread(entryOfSize(MarkupLanguage::Markdown, 2 * 1024), 21);
    const double large = onThread(entryOfSize(MarkupLanguage::Markdown, 200 * 1024), 7);
    out << QStringLiteral("%1 %2 %3 %4\n")
               .arg(QStringLiteral("Markdown, preview thread"), -26)
               .arg(small, 0, 'f', 1)
               .arg(QString(), 12)
               .arg(large, 0, 'f', 1);
    return 0;
}
