#include "core/UserDefaults.h"
#include "library/CreationDate.h"
#include "library/CursorPositionStore.h"
#include "library/EntryDirectory.h"
#include "library/ExtendedAttributes.h"
#include "library/TextBundle.h"
#include "library/WordCounter.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/xattr.h>

class TestEntryFiles : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { TestHome::instance()->reset(); }

    void onlyItemsWithTheExactExtensionAreEntries()
    {
        QTemporaryDir dir;
        for (const char *name : {"b.txt", "a.txt", "b.TXT", "c.md", "_notes.stfn", ".DiaryIcon.png",
                                 ".txt", "attachments"})
            writeBytes(dir.filePath(name), "x");
        QDir(dir.path()).mkdir("folder.txt");
        QDir(dir.path()).mkdir("noext");
        QCOMPARE(EntryDirectory::listEntries(dir.path(), "txt"),
                 QStringList({".txt", "a.txt", "b.txt", "folder.txt"}));
        QCOMPARE(EntryDirectory::listEntries(dir.path(), "TXT"), QStringList({"b.TXT"}));

        QDir(dir.path()).mkdir("Day one.textbundle");
        QCOMPARE(EntryDirectory::listEntries(dir.path(), "textbundle"),
                 QStringList({"Day one.textbundle"}));
        QVERIFY(EntryDirectory::listEntries(dir.filePath("missing"), "txt").isEmpty());
        QCOMPARE(EntryDirectory::pathExtension(".txt"), QString("txt"));
        QCOMPARE(EntryDirectory::deletingPathExtension(".txt"), QString());
        QCOMPARE(EntryDirectory::deletingPathExtension("a.b.txt"), QString("a.b"));
        QCOMPARE(EntryDirectory::pathExtension("plain"), QString());
    }

    void displayRowsFollowTheSettings()
    {
        QTemporaryDir dir;
        const QString notebook = dir.path() + "/";
        writeBytes(notebook + "First.txt", "Line one\nLine two of the first entry");
        writeBytes(notebook + "Latin.txt", "caf\xE9");
        QDir(dir.path()).mkdir("Bundle.txt");

        EntryListSettings s{.showDates = true,
                            .showExcerpt = true,
                            .excerptLines = 3,
                            .titleSize = 12,
                            .infoSize = 11,
                            .createdLabel = "Created",
                            .modifiedLabel = "Modified",
                            .deletedLabel = "Gone"};
        EntryDisplayList list = EntryDirectory::formatTableItemsForDisplay(
            {"First.txt", "Latin.txt", "Bundle.txt", "Vanished.txt"}, notebook, s, 40);
        QCOMPARE(list.rows.size(), 4);
        QCOMPARE(list.heightOfFileTableRow, 12 + 5 + 14 * 5);
        const EntryDisplayRow &first = list.rows.at(0);
        QCOMPARE(first.titleLine, QString("  First"));
        const QLocale locale = QLocale::system();
        const auto shown = [&](const QDateTime &d) -> QString {
            return locale.toString(d.date(), QLocale::LongFormat) + " - " +
                   locale.toString(d.time(), QLocale::ShortFormat);
        };
        const QFileInfo info(notebook + "First.txt");
        const QDateTime born = info.birthTime().isValid() ? info.birthTime() : info.lastModified();
        QCOMPARE(first.infoText,
                 "\n    Created: " + shown(born) + "\n    Modified: " + shown(info.lastModified()));
        QCOMPARE(first.excerpt, QString("\nLine one\nLine two of the first entry"));
        QCOMPARE(list.rows.at(1).excerpt, QString("\n")); // not UTF-8: no excerpt
        QCOMPARE(list.rows.at(2).excerpt, QString("\n")); // a folder has no text
        QVERIFY(list.rows.at(3).deleted);
        QCOMPARE(list.rows.at(3).text(), QString("  Vanished\nGone"));

        // A month-old entry saved today still lists the date it was first written.
        const QDateTime monthAgo = QDateTime(QDate::currentDate().addMonths(-1), QTime(9, 30));
        QVERIFY(CreationDate::carry(notebook + "First.txt", monthAgo));
        list = EntryDirectory::formatTableItemsForDisplay({"First.txt"}, notebook, s, 40);
        QVERIFY(list.rows.at(0).infoText.startsWith("\n    Created: " + shown(monthAgo) + "\n"));

        // Only dates, larger info font: L = I + 4.
        s.showExcerpt = false;
        s.infoSize = 14;
        s.titleSize = 20;
        list = EntryDirectory::formatTableItemsForDisplay({"First.txt"}, notebook, s, 40);
        QCOMPARE(list.heightOfFileTableRow, 20 + 5 + 18 * 2);
        QCOMPARE(list.rows.at(0).excerpt, QString());

        // A list of vanished files keeps the height it had; a long entry gives c x 50
        // characters.
        list = EntryDirectory::formatTableItemsForDisplay({"x.txt"}, notebook, s, 40);
        QCOMPARE(list.heightOfFileTableRow, 40);
        writeBytes(notebook + "Long.txt", QByteArray(500, 'w'));
        s.showDates = false;
        s.showExcerpt = true;
        s.excerptLines = 2;
        list = EntryDirectory::formatTableItemsForDisplay({"Long.txt"}, notebook, s, 40);
        QCOMPARE(list.rows.at(0).excerpt, "\n" + QString(100, 'w'));
        QCOMPARE(list.heightOfFileTableRow, 20 + 5 + 18 * 2);
    }

    void cursorPositionAttribute()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath("c.txt");
        writeBytes(path, "some text");
        const QDateTime before = QDateTime::currentDateTime().addSecs(-3600);
        QFile f(path);
        QVERIFY(f.open(QIODevice::ReadWrite));
        QVERIFY(f.setFileTime(before, QFileDevice::FileModificationTime));
        f.close();

        CursorPositionStore::saveCurrentCursorPostionAtIndex(7, path);
        char buffer[32] = {};
        const ssize_t n =
            getxattr(QFile::encodeName(path).constData(),
                     "user.com.tessaly.metadata:DocumentCursorPosition", buffer, sizeof buffer);
        QCOMPARE(QByteArray(buffer, int(n)), QByteArray("7"));
        QCOMPARE(CursorPositionStore::getCursorPositionForDocument(path), 7);
        QCOMPARE(QFileInfo(path).lastModified(), before);

        QCOMPARE(CursorPositionStore::parseLocation("12"), 12);
        QCOMPARE(CursorPositionStore::parseLocation("-3"), 0);
        QCOMPARE(CursorPositionStore::parseLocation("abc"), 0);
        QCOMPARE(CursorPositionStore::parseLocation(" 42xyz"), 42);
        QCOMPARE(CursorPositionStore::parseLocation(""), 0);
        QCOMPARE(CursorPositionStore::getCursorPositionForDocument(dir.filePath("none.txt")), 0);
        CursorPositionStore::saveCurrentCursorPostionAtIndex(3, dir.filePath("none.txt"));
        QVERIFY(!QFile::exists(dir.filePath("none.txt")));
    }

    void sideStoresWhereAttributesFail()
    {
        // /proc/self has no user attributes; a regular file there stands in for such a disk.
        const QString path = "/proc/self/status";
        if (ExtendedAttributes::set(path, CursorPositionStore::attributeName(), "1"))
            QSKIP("this file system keeps attributes");
        CursorPositionStore::saveCurrentCursorPostionAtIndex(21, path);
        QCOMPARE(CursorPositionStore::getCursorPositionForDocument(path), 21);
        const QDateTime leapDay(QDate(2020, 2, 29), QTime(8, 15));
        QVERIFY(CreationDate::carry(path, leapDay));
        QCOMPARE(CreationDate::of(path), leapDay);
    }

    void textBundleLayoutAndInfo()
    {
        QTemporaryDir dir;
        const QString bundle = dir.filePath("Trip.textbundle");
        QDir().mkpath(bundle);
        QString error;
        QVERIFY(TextBundle::createLayout(bundle, 4, &error));
        QVERIFY(QFileInfo(bundle + "/assets").isDir());
        const QJsonObject info = QJsonDocument::fromJson(readBytes(bundle + "/info.json")).object();
        QCOMPARE(info.value("version").toInt(), 2);
        QCOMPARE(info.value("type").toString(), QString("com.tessaly.bbcode"));
        QVERIFY(info.value("transient").toBool());
        QCOMPARE(TextBundle::language(bundle, &error), 4);

        QCOMPARE(TextBundle::textFileName(bundle), QString());
        QCOMPARE(TextBundle::textFileNameForSaving(bundle, 2), QString("text.tex"));
        writeBytes(bundle + "/text.bbc", "a");
        writeBytes(bundle + "/text.markdown", "b");
        writeBytes(bundle + "/texts.md", "c");
        QCOMPARE(TextBundle::textFileName(bundle), QString("text.markdown"));
        QCOMPARE(TextBundle::textFileNameForSaving(bundle, 2), QString("text.markdown"));

        writeBytes(bundle + "/info.json", "{ \"type\": ");
        error.clear();
        QCOMPARE(TextBundle::language(bundle, &error), 1);
        QVERIFY(!error.isEmpty());
        QFile::remove(bundle + "/info.json");
        error.clear();
        QCOMPARE(TextBundle::language(bundle, &error), 1);
        writeBytes(bundle + "/info.json", "{\"type\": \"net.multimarkdown.text\"}");
        QCOMPARE(TextBundle::language(bundle, nullptr), 7);
    }

    void wordAndCharacterCounter()
    {
        QCOMPARE(WordCounter::counterText(""), QString("0:0"));
        QCOMPARE(WordCounter::counterText("a  b"), QString("3:4"));
        QCOMPARE(WordCounter::counterText("one two "), QString("3:8"));
        QCOMPARE(WordCounter::counterText("line\nnext\ttab"), QString("3:13"));
        QCOMPARE(WordCounter::counterText(QString::fromUtf8("😀 x")), QString("2:4"));
    }
};

VELLOX_TEST_MAIN(TestEntryFiles)
#include "tst_entryfiles.moc"
