#include "core/UserDefaults.h"
#include "library/widgets/EntryController.h"
#include "search/GrepSearch.h"
#include "search/widgets/TitleSearchController.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <QtTest>

#include <fcntl.h>
#include <unistd.h>

namespace {
// Runs one search to its end and gives its content matches.
QStringList searchFor(const QString &folder, const QString &term, const QString &extension)
{
    GrepSearch search;
    QSignalSpy done(&search, &GrepSearch::finished);
    search.start(folder, term, extension);
    if (!done.wait(10000))
        return {QStringLiteral("<no result>")};
    return done.first().at(1).toStringList();
}
} // namespace

class TestTitleSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { TestHome::instance()->reset(); }

    void plainNotebookListsTopLevelEntriesOnly()
    {
        QTemporaryDir dir;
        const QString n = dir.path() + QLatin1Char('/');
        writeBytes(n + QStringLiteral("Day.txt"), "a well-kept day");
        writeBytes(n + QStringLiteral("Night.txt"), "Stars and MOON");
        writeBytes(n + QStringLiteral("Moonrise.txt"), "moon rising");
        writeBytes(n + QStringLiteral("_notes.stfn"), "moon moon");
        writeBytes(n + QStringLiteral("moon.md"), "moon");
        QDir().mkpath(n + QStringLiteral("Day"));
        writeBytes(n + QStringLiteral("Day/notes.txt"), "moon in the attachments");
        writeBytes(n + QStringLiteral("binary.txt"), QByteArray("moon\0\1\2\3", 8));

        QCOMPARE(searchFor(n, QStringLiteral("moon"), QStringLiteral("txt")),
                 QStringList({"Moonrise.txt", "Night.txt"}));
        // A lone hyphen is searched as a hyphen, not taken for an option of grep.
        QCOMPARE(searchFor(n, QStringLiteral("-"), QStringLiteral("txt")),
                 QStringList({"Day.txt"}));
        // The quick-note file never counts, whatever the entry extension.
        QCOMPARE(searchFor(n, QStringLiteral("moon"), QStringLiteral("stfn")), QStringList());
        QVERIFY(!QFile::exists(GrepSearch::scriptPath()));
    }

    void bundleNotebookListsEachBundleOnce()
    {
        QTemporaryDir dir;
        const QString n = dir.path() + QLatin1Char('/');
        QDir().mkpath(n + QStringLiteral("Trip.textbundle/assets"));
        writeBytes(n + QStringLiteral("Trip.textbundle/text.markdown"), "rain");
        writeBytes(n + QStringLiteral("Trip.textbundle/assets/log.txt"), "rain again");
        writeBytes(n + QStringLiteral("loose.txt"), "rain");
        QCOMPARE(searchFor(n, QStringLiteral("rain"), QStringLiteral("textbundle")),
                 QStringList({"Trip.textbundle"}));
    }

    void awkwardTermsAndOutputNeverHang()
    {
        QTemporaryDir dir;
        const QString n = dir.path() + QLatin1Char('/');
        writeBytes(n + QStringLiteral("Quote.txt"), "say \"hi\"");
        // A name that is not UTF-8 makes grep's output undecodable: no content matches.
        const QByteArray latin1Name = QFile::encodeName(n) + "caf\xe9.txt";
        const int fd = ::open(latin1Name.constData(), O_CREAT | O_WRONLY, 0644);
        QVERIFY(fd >= 0 && ::write(fd, "hi", 2) == 2);
        ::close(fd);
        QCOMPARE(searchFor(n, QStringLiteral("\"hi"), QStringLiteral("txt")).size(), 0);
        QCOMPARE(searchFor(n, QStringLiteral("hi"), QStringLiteral("txt")), QStringList());
        QCOMPARE(::unlink(latin1Name.constData()), 0);
        QCOMPARE(searchFor(n, QStringLiteral("hi"), QStringLiteral("txt")),
                 QStringList({"Quote.txt"}));
    }

    void newerTermEndsTheOlderSearch()
    {
        QTemporaryDir dir;
        const QString n = dir.path() + QLatin1Char('/');
        writeBytes(n + QStringLiteral("Day.txt"), "sun");
        GrepSearch search;
        QSignalSpy done(&search, &GrepSearch::finished);
        // The term reaches the shell as typed: this one would keep it busy for a minute.
        search.start(n, QStringLiteral("$(sleep 60)"), QStringLiteral("txt"));
        search.start(n, QStringLiteral("sun"), QStringLiteral("txt"));
        QVERIFY(done.wait(10000));
        QCOMPARE(done.size(), 1);
        QCOMPARE(done.first().at(0).toString(), QStringLiteral("sun"));
        QCOMPARE(done.first().at(1).toStringList(), QStringList({"Day.txt"}));
        QVERIFY(!search.isRunning());
    }

    void typingNarrowsTheListAndOpensTheEntryNamedSo()
    {
        QTemporaryDir dir;
        const QString n = dir.path() + QLatin1Char('/');
        writeBytes(n + QStringLiteral("Day.txt"), "sunny");
        writeBytes(n + QStringLiteral("Days off.txt"), "rest");
        writeBytes(n + QStringLiteral("Night.txt"), "after a long day");
        writeBytes(n + QStringLiteral("Rain.txt"), "wet");

        QWidget window;
        auto *title = new QLineEdit;
        auto *list = new QListView;
        auto *editor = new QPlainTextEdit;
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(title);
        layout->addWidget(list);
        layout->addWidget(editor);
        EntryController entries(editor, title, list, new QLabel(&window), UserDefaults::standard());
        TitleSearchController search(&entries, title, UserDefaults::standard());
        window.show();
        entries.setNotebookPath(n);
        QCOMPARE(entries.listofFiles().size(), 4);

        QSignalSpy narrowed(&search, &TitleSearchController::listNarrowed);
        title->setFocus();
        QTest::keyClicks(title, QStringLiteral("day"));
        QVERIFY(narrowed.wait(10000));
        QCOMPARE(narrowed.size(), 1);
        QCOMPARE(entries.listofFiles(), QStringList({"Day.txt", "Days off.txt", "Night.txt"}));
        QCOMPARE(entries.selectedFileName(), QStringLiteral("Day.txt"));
        QCOMPARE(editor->toPlainText(), QStringLiteral("sunny"));

        // Emptying the title shows the whole notebook again.
        title->selectAll();
        QTest::keyClick(title, Qt::Key_Backspace);
        QCOMPARE(entries.listofFiles().size(), 4);
    }
};

VELLOX_TEST_MAIN(TestTitleSearch)
#include "tst_titlesearch.moc"
