// Entry listing and loading at sizes a long-kept diary reaches: a full relist with rows of a
// notebook of 10,000 entries (goal: under 300 ms), and a 10 MB entry loaded with encoding
// detection and saved back.
#include "library/CreationDate.h"
#include "library/EntryDirectory.h"
#include "library/EntryLoader.h"
#include "library/EntrySaver.h"

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

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    if (f.open(QIODevice::WriteOnly))
        f.write(bytes);
}
} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTemporaryDir dir;
    const QString notebook = dir.path() + "/";
    constexpr int entries = 10000;
    for (int i = 0; i < entries; ++i)
        writeFile(notebook + QStringLiteral("Entry %1.txt").arg(i, 5, 10, QLatin1Char('0')),
                  QByteArray("A day in the diary, with a few lines of text.\n").repeated(20));
    // Half of them saved by Vellox before, so they carry their creation date.
    for (int i = 0; i < entries; i += 2)
        CreationDate::carry(notebook +
                                QStringLiteral("Entry %1.txt").arg(i, 5, 10, QLatin1Char('0')),
                            QDateTime::currentDateTime().addDays(-i));

    EntryListSettings dates;
    EntryListSettings excerpts = dates;
    excerpts.showExcerpt = true;
    excerpts.excerptLines = 2;
    EntryListing listing;
    std::printf("full relist with rows, %d entries, dates: %.1f ms (goal < 300 ms)\n", entries,
                medianMs(5, [&] { listing = EntryDirectory::listWithRows(notebook, dates, 0); }));
    std::printf(
        "full relist with rows, %d entries, dates + 2 excerpt lines: %.1f ms\n", entries,
        medianMs(5, [&] { listing = EntryDirectory::listWithRows(notebook, excerpts, 0); }));
    std::printf("names only, %d entries: %.1f ms\n", entries,
                medianMs(9, [&] { EntryDirectory::listEntries(notebook, "txt"); }));

    const QString big = notebook + "big.txt";
    writeFile(big, QByteArray("Ein langer Tag, mit Umlauten \xC3\xA4\xC3\xB6\xC3\xBC.\n")
                       .repeated(10 * 1024 * 1024 / 36));
    EntryLoader::Result loaded;
    std::printf("load 10 MB UTF-8 entry: %.1f ms\n",
                medianMs(5, [&] { loaded = EntryLoader::load(big); }));
    std::printf("save 10 MB entry (compare, write, fsync, rename): %.1f ms\n", medianMs(5, [&] {
                    loaded.stamp =
                        EntrySaver::save(big, loaded.text, loaded.format, loaded.stamp).stamp;
                }));
    const QString latin = notebook + "latin.txt";
    writeFile(
        latin,
        QByteArray("Le caf\xE9 du matin, tr\xE8s chaud.\r\n").repeated(10 * 1024 * 1024 / 31));
    std::printf("load 10 MB Latin-1 CRLF entry (detection): %.1f ms\n",
                medianMs(5, [&] { loaded = EntryLoader::load(latin); }));
    return 0;
}
