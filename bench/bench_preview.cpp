// Time from an entry's text to a preview on screen, the way the window asks for it: the
// conversion on the preview's own thread and the page (building it and the web view loading
// it) printed apart, for a 2 KB and a 200 KB Markdown entry, a 1 MB entry, and a page large
// enough to go through a file. A long text's first screens are converted and shown before the
// rest, so "shown" can come before the whole conversion is done. Also how long renderText() holds
// the caller (the window). Prints the median of several runs.

#include "core/AppPaths.h"
#include "core/UserDefaults.h"
#include "render/PreviewConversionQueue.h"
#include "render/PreviewPage.h"
#include "render/widgets/PreviewController.h"
#include "render/widgets/PreviewHost.h"
#include "render/widgets/PreviewView.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

#include <unistd.h>

#include <algorithm>
#include <vector>

namespace {

// Every passage numbered, and the numbers of each run its own, so that a run converts text
// the converter has not seen (long texts are converted in runs of blocks, and runs seen
// before are reused).
QString markdownOfSize(qsizetype bytes, int run = 0)
{
    QString text;
    text.reserve(bytes + 400);
    for (int day = 0; text.size() < bytes; ++day) {
        text += QStringLiteral(
                    "## Tuesday %1-%2\n\nThe morning was *quiet* and I walked down to the "
                    "**harbour** where the boats were still tied up. [Notes](http://example.org) "
                    "from yesterday.\n\n- bread\n- coffee\n\n| When | Where |\n|---|---|\n"
                    "| 9:00 | Harbour |\n\n")
                    .arg(run)
                    .arg(day);
    }
    return text.left(bytes);
}

// The same text with a word typed in its middle.
QString edited(const QString &text)
{
    QString result = text;
    result.insert(result.indexOf(QLatin1Char(' '), result.size() / 2), QStringLiteral(" new"));
    return result;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double convertMs(PreviewConversionQueue &queue, const QString &text)
{
    QSignalSpy done(&queue, &PreviewConversionQueue::converted);
    QElapsedTimer timer;
    timer.start();
    queue.request(1, text);
    if (!done.wait(180000))
        return -1;
    return timer.nsecsElapsed() / 1e6;
}

struct Shown
{
    double callMs = -1;
    double totalMs = -1;
    // Until the last appended part of a long page is in.
    double completeMs = -1;
};

Shown showMs(PreviewController &controller, const QString &text, const QString &entry)
{
    QSignalSpy shown(&controller, &PreviewController::pageShown);
    PreviewView *view = controller.view()->webView();
    QElapsedTimer timer;
    timer.start();
    Shown result;
    controller.renderText(text, entry);
    result.callMs = timer.nsecsElapsed() / 1e6;
    if (shown.wait(180000))
        result.totalMs = timer.nsecsElapsed() / 1e6;
    // A long text's top is shown first and the rest added to the same page.
    if (QTest::qWaitFor([&] { return !controller.isPending() && !view->isAppending(); }, 180000))
        result.completeMs = timer.nsecsElapsed() / 1e6;
    return result;
}

} // namespace

int main(int argc, char *argv[])
{
    // A private home, so the benchmark neither reads nor changes the user's styles.
    QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", (home.path() + QStringLiteral("/.config")).toUtf8());
    qputenv("XDG_DATA_HOME", (home.path() + QStringLiteral("/.local/share")).toUtf8());
    qputenv("XDG_CACHE_HOME", (home.path() + QStringLiteral("/.cache")).toUtf8());
    if (geteuid() == 0)
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication app(argc, argv);

    UserDefaults defaults(home.path() + QStringLiteral("/bench.conf"));
    defaults.registerDefaults(UserDefaults::defaultsTable());
    QDir().mkpath(AppPaths::cssStyleFolder());
    QFile::copy(AppPaths::resource(QStringLiteral("styles/Standard.css")),
                AppPaths::cssStyleFolder() + QStringLiteral("Standard.css"));
    const QString entry = home.path() + QStringLiteral("/Notebook/Entry.txt");
    QDir().mkpath(home.path() + QStringLiteral("/Notebook"));

    QTextStream out(stdout);
    const int runs = 7;

    {
        const QString fragment = QStringLiteral("<p>") +
                                 markdownOfSize(200 * 1024).toHtmlEscaped() +
                                 QStringLiteral("</p>");
        std::vector<double> times;
        for (int i = 0; i < runs; ++i) {
            QElapsedTimer timer;
            timer.start();
            const QString page =
                PreviewPage::buildPage(fragment, entry, defaults, AppPaths::cssStyleFolder());
            times.push_back(timer.nsecsElapsed() / 1e6);
            Q_UNUSED(page);
        }
        out << "page build alone, 200 KB fragment: " << median(times) << " ms" << Qt::endl;
    }

    PreviewConversionQueue queue;
    PreviewController controller(defaults);
    controller.view()->resize(900, 700);
    controller.view()->show();
    convertMs(queue, QStringLiteral("warm-up"));
    showMs(controller, QStringLiteral("warm-up"), entry);

    // Opening: text never converted before. Editing: the text of the opening with one word
    // more, the way the preview follows typing.
    int run = 0;
    for (const qsizetype bytes : {qsizetype(2 * 1024), qsizetype(200 * 1024)}) {
        for (const bool editing : {false, true}) {
            std::vector<double> conversions;
            std::vector<double> totals;
            std::vector<double> calls;
            std::vector<double> completes;
            for (int i = 0; i < runs; ++i) {
                const QString opened = markdownOfSize(bytes, ++run);
                if (editing) {
                    convertMs(queue, opened);
                    showMs(controller, opened, entry);
                }
                const QString text = editing ? edited(opened) : opened;
                conversions.push_back(convertMs(queue, text));
                // The same text again for the page: the controller converts on a thread and
                // with a worker of its own, which has not seen it yet either.
                const Shown shown = showMs(controller, text, entry);
                totals.push_back(shown.totalMs);
                calls.push_back(shown.callMs);
                completes.push_back(shown.completeMs);
            }
            const double conversion = median(conversions);
            const double total = median(totals);
            out << "Markdown " << bytes / 1024 << " KB " << (editing ? "edited" : "opened")
                << ": converter (whole text) " << conversion << " ms, shown after " << total
                << " ms (goal for 200 KB: < 100 ms), complete after " << median(completes)
                << " ms; "
                << "renderText() held the window " << median(calls) << " ms" << Qt::endl;
        }
    }

    {
        std::vector<double> totals;
        std::vector<double> calls;
        std::vector<double> completes;
        for (int i = 0; i < 3; ++i) {
            const Shown shown = showMs(controller, markdownOfSize(1024 * 1024, ++run), entry);
            totals.push_back(shown.totalMs);
            calls.push_back(shown.callMs);
            completes.push_back(shown.completeMs);
        }
        out << "Markdown 1 MB opened: shown after " << median(totals) << " ms (goal < 3000 ms), "
            << "complete after " << median(completes) << " ms; "
            << "renderText() held the window " << median(calls) << " ms" << Qt::endl;
    }

    controller.setConverter([](int, const QString &text) { return text; });
    const QString large =
        QStringLiteral("<p>") + QString(3 * 1024 * 1024, QLatin1Char('x')) + QStringLiteral("</p>");
    std::vector<double> times;
    for (int i = 0; i < 3; ++i)
        times.push_back(showMs(controller, large, entry).totalMs);
    out << "3 MB page through a file: shown after " << median(times) << " ms" << Qt::endl;
    return 0;
}
