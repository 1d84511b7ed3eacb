// Time from an entry's text to a finished preview page: page building alone, and the whole
// rebuild (conversion, page, web view load) for a 2 KB and a 200 KB Markdown entry and for
// a page large enough to go through a file. Prints the median of several runs.

#include "core/AppPaths.h"
#include "core/UserDefaults.h"
#include "render/PreviewPage.h"
#include "render/TaskController.h"
#include "render/widgets/PreviewController.h"
#include "render/widgets/PreviewView.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextStream>

#include <unistd.h>

#include <algorithm>
#include <vector>

namespace {

QString markdownOfSize(qsizetype bytes)
{
    const QString passage = QStringLiteral(
        "## Tuesday\n\nThe morning was *quiet* and I walked down to the **harbour** where the "
        "boats were still tied up. [Notes](http://example.org) from yesterday.\n\n- bread\n"
        "- coffee\n\n| When | Where |\n|---|---|\n| 9:00 | Harbour |\n\n");
    return passage.repeated(bytes / passage.size() + 1).left(bytes);
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double renderMs(PreviewController &controller, const QString &text, const QString &entry)
{
    QSignalSpy loads(controller.view(), &QWebEngineView::loadFinished);
    QElapsedTimer timer;
    timer.start();
    controller.renderText(text, entry);
    if (!loads.wait(60000))
        return -1;
    return timer.nsecsElapsed() / 1e6;
}

} // namespace

int main(int argc, char *argv[])
{
    // A private home, so the benchmark neither reads nor changes the user's styles.
    QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", (home.path() + QStringLiteral("/.config")).toUtf8());
    qputenv("XDG_DATA_HOME", (home.path() + QStringLiteral("/.local/share")).toUtf8());
    if (geteuid() == 0)
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication app(argc, argv);

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
            const QString page = PreviewPage::buildPage(fragment, entry, UserDefaults::standard(),
                                                        AppPaths::cssStyleFolder());
            times.push_back(timer.nsecsElapsed() / 1e6);
            Q_UNUSED(page);
        }
        out << "page build, 200 KB fragment: " << median(times) << " ms" << Qt::endl;
    }

    PreviewController controller;
    controller.view()->resize(900, 700);
    controller.view()->show();
    renderMs(controller, QStringLiteral("warm-up"), entry);

    for (const qsizetype bytes : {qsizetype(2 * 1024), qsizetype(200 * 1024)}) {
        const QString text = markdownOfSize(bytes);
        std::vector<double> conversions;
        for (int i = 0; i < runs; ++i) {
            QElapsedTimer timer;
            timer.start();
            TaskController::convertStringWithMarkUpLanguage(1, text);
            conversions.push_back(timer.nsecsElapsed() / 1e6);
        }
        out << "conversion alone, Markdown " << bytes / 1024 << " KB: " << median(conversions)
            << " ms" << Qt::endl;
        std::vector<double> times;
        for (int i = 0; i < runs; ++i)
            times.push_back(renderMs(controller, text, entry));
        out << "preview rebuild, Markdown " << bytes / 1024 << " KB: " << median(times) << " ms"
            << Qt::endl;
    }

    controller.setConverter([](int, const QString &text) { return text; });
    const QString large =
        QStringLiteral("<p>") + QString(3 * 1024 * 1024, QLatin1Char('x')) + QStringLiteral("</p>");
    std::vector<double> times;
    for (int i = 0; i < 3; ++i)
        times.push_back(renderMs(controller, large, entry));
    out << "preview load, 3 MB page through a file: " << median(times) << " ms" << Qt::endl;
    return 0;
}
