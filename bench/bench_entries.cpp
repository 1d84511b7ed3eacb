// Entry listing and loading at sizes a long-kept diary reaches: a notebook of 2,000 entries
// with dates and excerpts, and a 10 MB entry read with encoding detection and written back.
#include "library/EntryDirectory.h"
#include "library/EntryFile.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace {
template <typename F> double medianMs(int runs, F &&f)
{
    QList<double> times;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer t;
        t.start();
        f();
        times << t.nsecsElapsed() / 1e6;
    }
    std::sort(times.begin(), times.end());
    return times.at(times.size() / 2);
}
} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTemporaryDir dir;
    const QString notebook = dir.path() + "/";
    for (int i = 0; i < 2000; ++i) {
        QFile f(notebook + QStringLiteral("Entry %1.txt").arg(i, 4, 10, QLatin1Char('0')));
        f.open(QIODevice::WriteOnly);
        f.write(QByteArray("A day in the diary, with a few lines of text.\n").repeated(20));
    }
    EntryListSettings settings;
    settings.showExcerpt = true;
    settings.excerptLines = 2;

    QStringList files;
    const double list = medianMs(9, [&] { files = EntryDirectory::listEntries(notebook, "txt"); });
    std::printf("list 2000 entries: %.2f ms\n", list);
    const double rows = medianMs(
        5, [&] { EntryDirectory::formatTableItemsForDisplay(files, notebook, settings, 0); });
    std::printf("display rows for 2000 entries (dates + 2 excerpt lines): %.2f ms\n", rows);

    const QString big = notebook + "big.txt";
    {
        QFile f(big);
        f.open(QIODevice::WriteOnly);
        f.write(QByteArray("Ein langer Tag, mit Umlauten \xC3\xA4\xC3\xB6\xC3\xBC.\n")
                    .repeated(10 * 1024 * 1024 / 36));
    }
    EntryFile::Loaded loaded;
    std::printf("read 10 MB UTF-8 entry: %.2f ms\n",
                medianMs(5, [&] { loaded = EntryFile::read(big); }));
    std::printf("write 10 MB entry atomically: %.2f ms\n",
                medianMs(5, [&] { EntryFile::write(big, loaded.text, 4, nullptr, nullptr); }));
    const QString latin = notebook + "latin.txt";
    {
        QFile f(latin);
        f.open(QIODevice::WriteOnly);
        f.write(
            QByteArray("Le caf\xE9 du matin, tr\xE8s chaud.\n").repeated(10 * 1024 * 1024 / 30));
    }
    std::printf("read 10 MB Latin-1 entry (detection): %.2f ms\n",
                medianMs(5, [&] { loaded = EntryFile::read(latin); }));
    return 0;
}
