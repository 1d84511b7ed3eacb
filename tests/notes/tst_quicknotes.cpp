#include "core/UserDefaults.h"
#include "library/NotebookRegistry.h"
#include "notes/BookmarkLink.h"
#include "notes/NoteTitles.h"
#include "notes/QuickNoteCapture.h"
#include "notes/QuickNoteFile.h"
#include "notes/QuickNoteStore.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

// The notes file on disk, the store over it, and the links the bookmarklet sends.
class TestQuickNotes : public QObject
{
    Q_OBJECT

    static QString savePath(const QTemporaryDir &dir) { return dir.path() + QLatin1Char('/'); }

private Q_SLOTS:
    // Our file must be what any property-list reader reads, and theirs what we read.
    void fileIsAStandardPropertyList()
    {
        const QString python = QStandardPaths::findExecutable("python3");
        if (python.isEmpty())
            QSKIP("python3 is not installed");
        QTemporaryDir dir;
        QuickNoteStore store;
        store.load(savePath(dir));
        QVERIFY(store.append({"09:15 - Monday, 2 March 2026", QString()}));
        QVERIFY(
            store.append({"t2", QString::fromUtf8("caf\xC3\xA9 <b> & \xF0\x9F\x98\x80\nline")}));
        // A garbled link's control bytes are kept visibly, not as XML other readers refuse.
        const QString sep = "VelloxImportSeperator";
        QVERIFY(store.append(QuickNoteCapture::noteFromLink(
            BookmarkLink::parse("x-velloxBookmarkNote:" + sep + sep + "a" + sep + "%00%0B%7F%FF"),
            QDateTime(QDate(2026, 3, 2), QTime(9, 15)), QLocale::c())));

        const QString theirs = dir.filePath("theirs.stfn");
        const QString script =
            QStringLiteral("import plistlib, sys\n"
                           "notes = plistlib.load(open(sys.argv[1], 'rb'))\n"
                           "assert notes[:2] == [['09:15 - Monday, 2 March 2026', ''],"
                           " ['t2', 'caf\\u00e9 <b> & \\U0001F600\\nline']], notes\n"
                           "assert notes[2][1] == '\\u2400\\u240b\\u2421\\u00ff\\nLink: a', notes\n"
                           "notes.append(['from python', 'x'])\n"
                           "plistlib.dump(notes, open(sys.argv[2], 'wb'), fmt=plistlib.FMT_XML)\n");
        QProcess py;
        py.start(python, {"-c", script, dir.filePath("_notes.stfn"), theirs});
        QVERIFY(py.waitForFinished(30000));
        QVERIFY2(py.exitCode() == 0, py.readAllStandardError().constData());

        const auto back = QuickNoteFile::read(theirs);
        QCOMPARE(back.status, QuickNoteFile::Contents::Read);
        QCOMPARE(back.notes.size(), 4);
        QCOMPARE(back.notes.at(2), store.note(2));
        QCOMPARE(back.notes.at(3), (QuickNote{"from python", "x"}));
    }

    void missingFileIsEmptyAndMadeByTheFirstNote()
    {
        QTemporaryDir dir;
        QuickNoteStore store;
        store.load(savePath(dir));
        QCOMPARE(store.count(), 0);
        QVERIFY(!store.isDetached());
        QCOMPARE(filesIn(dir.path()), QStringList());
        QVERIFY(store.append({"a", "b"}));
        QCOMPARE(filesIn(dir.path()), QStringList{"_notes.stfn"});
    }

    // A file we cannot read is never written over, whatever is tried on the store.
    void damagedFileIsLeftAlone_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        addRow("not xml", QByteArray("garbage\x01\x02"));
        addRow("root is a dict", QByteArray(R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict><key>a</key><string>b</string></dict></plist>)"));
        addRow("note of three strings", QByteArray(R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><array><array><string>a</string><string>b</string><string>c</string></array></array></plist>)"));
    }
    void damagedFileIsLeftAlone()
    {
        QFETCH(QByteArray, bytes);
        QTemporaryDir dir;
        writeBytes(dir.filePath("_notes.stfn"), bytes);
        QuickNoteStore store;
        QSignalSpy damaged(&store, &QuickNoteStore::damagedFileFound);
        store.load(savePath(dir));
        QCOMPARE(damaged.count(), 1);
        QVERIFY(store.isDetached());
        QVERIFY(!store.append({"a", "b"}));
        QVERIFY(!store.removeAll());
        QCOMPARE(store.removeAllExceptFrom("x"), -1);
        QCOMPARE(readBytes(dir.filePath("_notes.stfn")), bytes);

        // Another notebook with a readable file attaches the store again.
        QTemporaryDir other;
        store.load(savePath(other));
        QVERIFY(store.append({"a", "b"}));
    }

    // Only every second note of a run of old ones goes per run.
    void deletingAllButTodaySkipsEverySecondOldNote()
    {
        QTemporaryDir dir;
        const QString today = QStringLiteral("Sunday, 15 November 2026");
        QuickNoteStore store;
        store.load(savePath(dir));
        for (const QuickNote &note :
             {QuickNote{"08:00 - Friday, 13 November 2026", "A"},
              QuickNote{"09:00 - Saturday, 14 November 2026", "B"},
              QuickNote{"10:00 - " + today, "C"}, QuickNote{"11:00 - Monday, 9 March 2026", "D"},
              QuickNote{"12:00 - Monday, 9 March 2026", "E"},
              QuickNote{"13:00 - Monday, 9 March 2026", "F"}})
            store.append(note);
        QCOMPARE(store.removeAllExceptFrom(today), 3);
        auto texts = [&] {
            QStringList result;
            for (const QuickNote &note : QuickNoteFile::read(store.filePath()).notes)
                result << note.text;
            return result;
        };
        QCOMPARE(texts(), (QStringList{"B", "C", "E"}));
        store.removeAllExceptFrom(today);
        QCOMPARE(texts(), QStringList{"C"});
    }

    // Capture into a notebook not on display writes its file directly; a damaged one is
    // kept aside first.
    void captureIntoAnotherNotebook()
    {
        QTemporaryDir shown;
        QTemporaryDir other;
        UserDefaults defaults(TestHome::instance()->path() + "/capture.conf");
        NotebookRegistry registry(defaults);
        registry.store(
            {{{NotebookRegistry::NameKey, "Shown"}, {NotebookRegistry::PathKey, shown.path()}},
             {{NotebookRegistry::NameKey, "Other"}, {NotebookRegistry::PathKey, other.path()}}});
        QuickNoteStore store;
        store.load(savePath(shown));
        QuickNoteCapture capture(store, registry);

        QVERIFY(capture.addNote(0, 0, {"t", "shown"}).added);
        QCOMPARE(store.count(), 1);

        const QByteArray damaged("<plist>broken");
        writeBytes(other.filePath("_notes.stfn"), damaged);
        const auto first = capture.addNote(1, 0, {"t", "one"});
        QVERIFY(first.added);
        QCOMPARE(first.damagedCopy, other.filePath("_notes.stfn.damaged"));
        QCOMPARE(readBytes(first.damagedCopy), damaged);
        QCOMPARE(QuickNoteFile::read(other.filePath("_notes.stfn")).notes,
                 (QList<QuickNote>{{"t", "one"}}));

        writeBytes(other.filePath("_notes.stfn"), damaged + "2");
        const auto second = capture.addNote(1, 0, {"t", "two"});
        QCOMPARE(second.damagedCopy, other.filePath("_notes.stfn.damaged-2"));
        QCOMPARE(readBytes(second.damagedCopy), damaged + "2");
        QCOMPARE(readBytes(first.damagedCopy), damaged);
        QCOMPARE(store.count(), 1);
    }

    void parsesLinks_data()
    {
        QTest::addColumn<QString>("link");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("address");
        QTest::addColumn<QString>("text");
        const QString sep = "VelloxImportSeperator";
        const int ok = int(BookmarkLink::Status::Ok);
        addRow("utf-8",
               "x-velloxBookmarkNote:utf-8" + sep + "T" + sep + "https%3A%2F%2Fex.org%2Fa%3Fb%3D1" +
                   sep + "caf%C3%A9%20%E2%82%AC",
               ok, QString("https://ex.org/a?b=1"), QString::fromUtf8("caf\xC3\xA9 \xE2\x82\xAC"));
        addRow("any case of the scheme", "X-VELLOXBOOKMARKNOTE:utf-8" + sep + sep + "h" + sep + "t",
               ok, QString("h"), QString("t"));
        // Not UTF-8: read again as Latin-1, the address with it.
        addRow("latin-1", "x-velloxBookmarkNote:iso-8859-1" + sep + sep + "a%E9" + sep + "caf%E9",
               ok, QString::fromUtf8("a\xC3\xA9"), QString::fromUtf8("caf\xC3\xA9"));
        // The name in the link never picks the encoding: UTF-8 is tried first regardless.
        addRow("named latin-1, utf-8 bytes",
               "x-velloxBookmarkNote:iso-8859-1" + sep + sep + "a" + sep + "%C3%A9", ok,
               QString("a"), QString::fromUtf8("\xC3\xA9"));
        addRow("old escapes",
               "x-velloxBookmarkNote:utf-8" + sep + sep + "a" + sep +
                   "%25u2018x%25U2019%25u201Cy%25u201d%25u2026",
               ok, QString("a"),
               QString::fromUtf8("\xE2\x80\x99x'\xE2\x80\x9Cy\xE2\x80\x9D\xE2\x80\xA6"));
        const int undecodable = int(BookmarkLink::Status::Undecodable);
        addRow("bad escape", "x-velloxBookmarkNote:utf-8" + sep + sep + "a" + sep + "50%",
               undecodable, QString(), QString());
        addRow("not hex", "x-velloxBookmarkNote:utf-8" + sep + sep + "a" + sep + "%zz", undecodable,
               QString(), QString());
        const int missing = int(BookmarkLink::Status::MissingFields);
        addRow("three fields", "x-velloxBookmarkNote:utf-8" + sep + sep + "a", missing, QString(),
               QString());
        addRow("scheme alone", QString("x-velloxbookmarknote:"), missing, QString(), QString());
        addRow("short first field", "x-velloxBookmarkNote:" + sep + sep + sep, ok, QString(),
               QString());
        addRow("another scheme", "https://example.org/" + sep + sep + sep,
               int(BookmarkLink::Status::NotOurScheme), QString(), QString());
    }
    void parsesLinks()
    {
        QFETCH(QString, link);
        QFETCH(int, status);
        const BookmarkLink parsed = BookmarkLink::parse(link);
        QCOMPARE(int(parsed.status()), status);
        if (parsed.isValid()) {
            QTEST(parsed.address(), "address");
            QTEST(parsed.text(), "text");
        }
    }

    // A huge or binary link is read, not choked on.
    void hugeAndBinaryLinks()
    {
        const QString sep = "VelloxImportSeperator";
        const QString head = "x-velloxBookmarkNote:utf-8" + sep + sep + "a" + sep;
        const BookmarkLink huge = BookmarkLink::parse(head + QString("a%20").repeated(350000));
        QVERIFY(huge.isValid());
        QCOMPARE(huge.text().size(), 700000);

        QByteArray garbage(200000, '\0');
        for (int i = 0; i < garbage.size(); ++i)
            garbage[i] = char((i * 7919) % 256);
        const BookmarkLink binary = BookmarkLink::parse(head + QString::fromLatin1(garbage));
        QVERIFY(binary.status() != BookmarkLink::Status::NotOurScheme);
    }

    void linkOfANote()
    {
        QCOMPARE(NoteTitles::linkOfNote("seen\nLink: https://a.org/x y \n"),
                 QString("https://a.org/x y"));
        QCOMPARE(NoteTitles::linkOfNote("Link: ftp://a.org"), QString());
        QCOMPARE(NoteTitles::linkOfNote("no link"), QString());
    }
};

VELLOX_TEST_MAIN(TestQuickNotes)
#include "tst_quicknotes.moc"
