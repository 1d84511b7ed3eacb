// The attachments panel on a folder of 300 photos: the list with type icons at once, every
// thumbnail made off the main thread (goal: under 5 s with an empty thumbnail cache), and
// again from the shared cache (goal: under 200 ms), with the longest stall of the main
// thread meanwhile (the window must stay responsive). Usage: bench_thumbnails [photos]
// [megapixels].
#include "attachments/ThumbnailLoader.h"
#include "attachments/widgets/AttachmentFileController.h"
#include "attachments/widgets/AttachmentPanel.h"
#include "core/UserDefaults.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLinearGradient>
#include <QMainWindow>
#include <QPainter>
#include <QTemporaryDir>
#include <QTimer>

#include <cmath>
#include <cstdio>

#include <sys/resource.h>

namespace {
struct Run
{
    double listedMs = 0;
    double allMs = 0;
    double longestStallMs = 0;
    // CPU time of all threads: on a shared machine, what the wall time would be alone is
    // about this divided by the cores.
    double cpuMs = 0;
};

double processCpuMs()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1e3 +
           (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e3;
}

// From the notification to the last thumbnail, watching how long the event loop goes
// without turning.
Run measure(AttachmentFileController &controller)
{
    Run run;
    QElapsedTimer clock;
    QElapsedTimer sinceTick;
    QTimer ticker;
    ticker.setInterval(5);
    QObject::connect(&ticker, &QTimer::timeout, [&] {
        run.longestStallMs = std::max(run.longestStallMs, sinceTick.nsecsElapsed() / 1e6);
        sinceTick.restart();
    });
    QEventLoop loop;
    QObject::connect(controller.thumbnails(), &ThumbnailLoader::finished, &loop, &QEventLoop::quit);
    const double cpuBefore = processCpuMs();
    clock.start();
    sinceTick.start();
    ticker.start();
    controller.receiveNewDateNotification(QStringLiteral("day"));
    run.listedMs = clock.nsecsElapsed() / 1e6;
    loop.exec();
    run.allMs = clock.nsecsElapsed() / 1e6;
    run.cpuMs = processCpuMs() - cpuBefore;
    return run;
}
} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir dir;
    // A cache of our own, so "cold" really is.
    qputenv("XDG_CACHE_HOME", (dir.path() + QStringLiteral("/cache")).toUtf8());
    QApplication app(argc, argv);
    const int photos = argc > 1 ? std::atoi(argv[1]) : 300;
    const double megapixels = argc > 2 ? std::atof(argv[2]) : 6.0;
    const int width = int(std::sqrt(megapixels * 1e6 * 4 / 3));
    const int height = width * 3 / 4;

    const QString notebook = dir.path() + QStringLiteral("/notebook/");
    const QString folder = notebook + QStringLiteral("day/");
    QDir().mkpath(folder);
    std::printf("writing %d photos of %dx%d...\n", photos, width, height);
    QImage photo(width, height, QImage::Format_RGB32);
    for (int i = 0; i < photos; ++i) {
        QPainter painter(&photo);
        QLinearGradient gradient(0, 0, width, height);
        gradient.setColorAt(0, QColor::fromHsv(i % 360, 200, 220));
        gradient.setColorAt(1, QColor::fromHsv((i * 7) % 360, 120, 60));
        painter.fillRect(photo.rect(), gradient);
        painter.end();
        photo.save(folder + QStringLiteral("IMG_%1.jpg").arg(i, 4, 10, QLatin1Char('0')), "JPEG",
                   85);
    }

    UserDefaults defaults(dir.path() + QStringLiteral("/Vellox.conf"));
    defaults.registerDefaults(UserDefaults::defaultsTable());
    QMainWindow window;
    AttachmentFileController controller(defaults, &window);
    controller.setNotebookProvider([&] { return notebook; });
    window.setCentralWidget(controller.panel());
    window.show();

    std::printf("measuring...\n");
    std::fflush(stdout);
    const Run cold = measure(controller);
    std::printf("cold: listed with icons %.1f ms, all %d thumbnails %.1f ms (goal < 5000 ms), "
                "longest main-thread stall %.1f ms, cpu %.0f ms\n",
                cold.listedMs, photos, cold.allMs, cold.longestStallMs, cold.cpuMs);
    const Run warm = measure(controller);
    std::printf("warm: listed with icons %.1f ms, all thumbnails %.1f ms (goal < 200 ms), "
                "longest main-thread stall %.1f ms, cpu %.0f ms\n",
                warm.listedMs, warm.allMs, warm.longestStallMs, warm.cpuMs);
    return 0;
}
