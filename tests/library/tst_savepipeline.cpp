// Loading and saving entries on real files: encodings, layouts, dates, names, outside
// writes, and the faults a disk can throw at a save (read-only, full, immutable).
#include "library/CreationDate.h"
#include "library/EntryLoader.h"
#include "library/EntryNames.h"
#include "library/EntrySaver.h"
#include "library/ExtendedAttributes.h"
#include "library/FileLock.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

Q_DECLARE_METATYPE(LineEnding)

namespace {
QByteArray encoded(const QString &text, QStringConverter::Encoding encoding)
{
    QStringEncoder encoder(encoding);
    return encoder.encode(text);
}

QString reason(int code)
{
    return QString::fromLocal8Bit(std::strerror(code));
}

bool run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    return process.waitForFinished(10000) && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

unsigned modeOf(const QString &path)
{
    struct stat st = {};
    return ::stat(QFile::encodeName(path).constData(), &st) == 0 ? st.st_mode & 07777 : 0;
}

// The file's creation date moves on with every new inode; wait until the clock has passed it
// so a date carried wrongly shows.
void letTheClockPass(const QDateTime &after)
{
    while (QDateTime::currentDateTime() <= after.addMSecs(5))
        QThread::msleep(2);
}
} // namespace

class TestSavePipeline : public QObject
{
    Q_OBJECT
    QScopedPointer<QTemporaryDir> m_dir;
    QStringList m_mounts;
    QStringList m_locked;

    QString path(const QString &name) const { return m_dir->filePath(name); }

    // A tmpfs of the given size mounted inside the test folder; empty when this process may
    // not mount.
    QString mountTmpfs(const QString &options)
    {
        const QString point = path(QStringLiteral("mnt%1").arg(m_mounts.size()));
        QDir().mkpath(point);
        if (::geteuid() != 0 || !run("mount", {"-t", "tmpfs", "-o", options, "tmpfs", point}))
            return QString();
        m_mounts << point;
        return point;
    }

    bool lock(const QString &target)
    {
        if (!FileLock::setImmutable(target, true))
            return false;
        m_locked << target;
        return true;
    }

private Q_SLOTS:
    void init()
    {
        TestHome::instance()->reset();
        m_dir.reset(new QTemporaryDir);
    }

    void cleanup()
    {
        for (const QString &target : std::as_const(m_locked))
            FileLock::setImmutable(target, false);
        m_locked.clear();
        for (auto it = m_mounts.crbegin(); it != m_mounts.crend(); ++it)
            run("umount", {"-l", *it});
        m_mounts.clear();
        m_dir.reset();
    }

    void encodingsRoundTrip_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("encoding");
        QTest::addColumn<bool>("mark");
        QTest::addColumn<QByteArray>("bang"); // "!" as this encoding writes it

        const QString german = QString::fromUtf8("Liebes Tagebuch,\nheute: Grüße, 5 € und 😀");
        const QString latin =
            QString::fromUtf8("Le café est très chaud, dit le garçon à la fenêtre.");
        const QString plain = QStringLiteral("Dear diary,\nA quiet day in May, 21 degrees.");
        using E = QStringConverter;
        addRow("utf-8", german.toUtf8(), german, 4, false, QByteArray("!"));
        addRow("utf-8 with mark", "\xEF\xBB\xBF" + german.toUtf8(), german, 4, true,
               QByteArray("!"));
        addRow("utf-8 large", plain.repeated(8000).toUtf8(), plain.repeated(8000), 4, false,
               QByteArray("!"));
        addRow("latin-1", encoded(latin, E::Latin1), latin, 5, false, QByteArray("!"));
        addRow("windows-1252", QByteArray("\x93quoted\x94 costs \x80 5"),
               QString::fromUtf8("“quoted” costs € 5"), 12, false, QByteArray("!"));
        addRow("utf-16le with mark", encoded(german, E::Utf16LE).prepend("\xFF\xFE"), german,
               TextEncoding::UTF16LE, true, QByteArray("!\0", 2));
        addRow("utf-16be with mark", encoded(german, E::Utf16BE).prepend("\xFE\xFF"), german,
               TextEncoding::UTF16BE, true, QByteArray("\0!", 2));
        addRow("utf-16le", encoded(german, E::Utf16LE), german, TextEncoding::UTF16LE, false,
               QByteArray("!\0", 2));
        addRow("utf-16be", encoded(plain, E::Utf16BE), plain, TextEncoding::UTF16BE, false,
               QByteArray("\0!", 2));
        addRow("utf-32le with mark",
               encoded(german, E::Utf32LE).prepend(QByteArray("\xFF\xFE\0\0", 4)), german,
               TextEncoding::UTF32LE, true, QByteArray("!\0\0\0", 4));
        addRow("utf-32be", encoded(plain, E::Utf32BE), plain, TextEncoding::UTF32BE, false,
               QByteArray("\0\0\0!", 4));
        const QString japanese =
            QString::fromUtf8("今日は朝から雨でした。駅まで歩いて、図書館で本を読みました。")
                .repeated(3);
        QStringEncoder shiftJis("Shift_JIS");
        if (shiftJis.isValid())
            addRow("shift-jis", QByteArray(shiftJis.encode(japanese)), japanese, 8, false,
                   QByteArray("!"));
    }

    void encodingsRoundTrip()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QFETCH(int, encoding);
        QFETCH(bool, mark);
        QFETCH(QByteArray, bang);
        const QString file = path("entry.txt");
        writeBytes(file, bytes);

        const EntryLoader::Result loaded = EntryLoader::load(file);
        QVERIFY(loaded.readable);
        QCOMPARE(loaded.text, text);
        QCOMPARE(loaded.format.encoding, encoding);
        QCOMPARE(loaded.format.byteOrderMark, mark);
        QCOMPARE(loaded.stamp, FileStamp::of(file));

        // An edit is written in the same bytes as the file had, plus the new ones.
        const EntrySaver::Result saved =
            EntrySaver::save(file, loaded.text + "!", loaded.format, loaded.stamp);
        QCOMPARE(saved.status, EntrySaver::Result::Saved);
        QVERIFY(!saved.created);
        QCOMPARE(saved.format, loaded.format);
        QCOMPARE(readBytes(file), bytes + bang);
        QCOMPARE(saved.stamp, FileStamp::of(file));
        QCOMPARE(filesIn(m_dir->path()), QStringList({"entry.txt"}));

        const EntryLoader::Result again = EntryLoader::reload(file, saved.format);
        QCOMPARE(again.text, text + "!");
        QCOMPARE(again.format, loaded.format);
    }

    void undecodableBytesLoadAsMacRomanAndSaveAsUtf8()
    {
        // Neither UTF-8 nor a detectable charset: the thirty-encoding run ends in Mac OS
        // Roman, where 0x81 is Å, 0x8D ç, 0x8F è, 0x90 ê, 0x9D ù, 0xFF ˇ, 0xFE ˛, 0x80 Ä.
        const QByteArray unit("\x81\x8D\x8F\x90\x9D\xFF\xFE\x00\x80", 9);
        const QString shown = QString::fromUtf8("Åçèêùˇ˛") + QChar(0) + QString::fromUtf8("Ä");
        const QString file = path("odd.txt");
        writeBytes(file, unit.repeated(40));
        const EntryLoader::Result loaded = EntryLoader::load(file);
        QCOMPARE(loaded.text, shown.repeated(40));
        QCOMPARE(loaded.format.encoding, 4);
        QCOMPARE(EntrySaver::save(file, loaded.text, loaded.format, loaded.stamp).status,
                 EntrySaver::Result::Saved);
        QCOMPARE(readBytes(file), shown.repeated(40).toUtf8());
    }

    void textTheEncodingLacksIsWrittenAsUtf8()
    {
        const QString file = path("latin.txt");
        writeBytes(file, "caf\xE9");
        const EntryLoader::Result loaded = EntryLoader::load(file);
        QCOMPARE(loaded.format.encoding, 5);
        const QString text = QString::fromUtf8("café 😀");
        const EntrySaver::Result saved = EntrySaver::save(file, text, loaded.format, loaded.stamp);
        QCOMPARE(saved.status, EntrySaver::Result::Saved);
        QCOMPARE(saved.format.encoding, 4);
        QCOMPARE(readBytes(file), text.toUtf8());
    }

    void lineEndingsSurviveAnEdit_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<LineEnding>("ending");
        QTest::addColumn<QByteArray>("written");
        addRow("crlf", QByteArray("one\r\ntwo\r\n"), LineEnding::CRLF,
               QByteArray("one\r\ntwo\r\nthree"));
        addRow("cr", QByteArray("one\rtwo\r"), LineEnding::CR, QByteArray("one\rtwo\rthree"));
        addRow("lf", QByteArray("one\ntwo\n"), LineEnding::LF, QByteArray("one\ntwo\nthree"));
        addRow("first break decides", QByteArray("one\r\ntwo\n"), LineEnding::CRLF,
               QByteArray("one\r\ntwo\r\nthree"));
        addRow("crlf with mark", QByteArray("\xEF\xBB\xBFone\r\ntwo\r\n"), LineEnding::CRLF,
               QByteArray("\xEF\xBB\xBFone\r\ntwo\r\nthree"));
        addRow("crlf in utf-16le", encoded("one\r\ntwo\r\n", QStringConverter::Utf16LE),
               LineEnding::CRLF, encoded("one\r\ntwo\r\nthree", QStringConverter::Utf16LE));
    }

    void lineEndingsSurviveAnEdit()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(LineEnding, ending);
        QFETCH(QByteArray, written);
        const QString file = path("lines.txt");
        writeBytes(file, bytes);
        const EntryLoader::Result loaded = EntryLoader::load(file);
        QCOMPARE(loaded.text, QString("one\ntwo\n"));
        QCOMPARE(loaded.format.lineEnding, ending);
        QCOMPARE(EntrySaver::save(file, loaded.text + "three", loaded.format, loaded.stamp).status,
                 EntrySaver::Result::Saved);
        QCOMPARE(readBytes(file), written);
    }

    void whatTheFileWasSurvivesSaves()
    {
        const QString file = path("month-old.txt");
        writeBytes(file, "first");
        QVERIFY(::chmod(QFile::encodeName(file).constData(), 0640) == 0);
        QVERIFY(ExtendedAttributes::set(file, "user.xdg.tags", "diary"));
        const QDateTime created = CreationDate::of(file);
        QVERIFY(created.isValid());

        FileStamp stamp = FileStamp::of(file);
        const QDateTime pinned = QDateTime::currentDateTime().addDays(-2).addMSecs(-123);
        for (int i = 0; i < 3; ++i) {
            letTheClockPass(created);
            const EntrySaver::Result saved =
                EntrySaver::save(file, QString("edit %1").arg(i), TextFormat(), stamp, pinned);
            QCOMPARE(saved.status, EntrySaver::Result::Saved);
            QCOMPARE(saved.stamp.modified, pinned);
            stamp = saved.stamp;
        }
        QVERIFY(QFileInfo(file).birthTime() > created || !QFileInfo(file).birthTime().isValid());
        QCOMPARE(CreationDate::of(file), created);
        QCOMPARE(modeOf(file), 0640u);
        QByteArray tag;
        QVERIFY(ExtendedAttributes::get(file, "user.xdg.tags", &tag));
        QCOMPARE(tag, QByteArray("diary"));

        // Duplicates and moves take the date along; a new file has its own and the usual mode.
        const QString copy = path("copy.txt");
        QVERIFY(EntrySaver::saveCopy(copy, "edit 2", TextFormat()).created);
        QVERIFY(CreationDate::of(copy) > created);
        const mode_t mask = ::umask(0);
        ::umask(mask);
        QCOMPARE(modeOf(copy), unsigned(0666 & ~mask));
        QVERIFY(CreationDate::copy(file, copy));
        QCOMPARE(CreationDate::of(copy), created);
    }

    void longNamesSaveAndReload()
    {
        const QString title = QString::fromUtf8("ä").repeated(125) + "x"; // 251 bytes
        const QString file = path(title + ".txt");
        QCOMPARE(QFile::encodeName(QFileInfo(file).fileName()).size(), 255);
        EntrySaver::Result saved = EntrySaver::save(file, "long", TextFormat(), FileStamp());
        QCOMPARE(saved.status, EntrySaver::Result::Saved);
        QVERIFY(saved.created);
        saved = EntrySaver::save(file, "longer", TextFormat(), saved.stamp);
        QCOMPARE(saved.status, EntrySaver::Result::Saved);
        QCOMPARE(EntryLoader::load(file).text, QString("longer"));

        const QString tooLong = path(title + "y.txt");
        saved = EntrySaver::save(tooLong, "lost?", TextFormat(), FileStamp());
        QCOMPARE(saved.status, EntrySaver::Result::Failed);
        QCOMPARE(saved.error, reason(ENAMETOOLONG));
        QCOMPARE(filesIn(m_dir->path()), QStringList({title + ".txt"}));
    }

    void outsideWritesAreNeverOverwritten()
    {
        const QString file = path("shared.txt");
        writeBytes(file, "mine");
        const EntryLoader::Result loaded = EntryLoader::load(file);

        // Same size, another time: only the date tells.
        writeBytes(file, "them");
        QFile touched(file);
        QVERIFY(touched.open(QIODevice::ReadWrite));
        QVERIFY(touched.setFileTime(loaded.stamp.modified.addSecs(2),
                                    QFileDevice::FileModificationTime));
        touched.close();
        EntrySaver::Result saved =
            EntrySaver::save(file, "mine, edited", loaded.format, loaded.stamp);
        QCOMPARE(saved.status, EntrySaver::Result::ChangedOnDisk);
        QCOMPARE(readBytes(file), QByteArray("them"));

        // A file that appeared where none was expected.
        saved = EntrySaver::save(path("new.txt"), "x", TextFormat(), FileStamp());
        QCOMPARE(saved.status, EntrySaver::Result::Saved);
        writeBytes(path("other.txt"), "theirs");
        QCOMPARE(EntrySaver::save(path("other.txt"), "mine", TextFormat(), FileStamp()).status,
                 EntrySaver::Result::ChangedOnDisk);
        QCOMPARE(readBytes(path("other.txt")), QByteArray("theirs"));

        // Deleted meanwhile: the text is written again rather than lost.
        const FileStamp stamp = FileStamp::of(path("new.txt"));
        QVERIFY(QFile::remove(path("new.txt")));
        saved = EntrySaver::save(path("new.txt"), "kept", TextFormat(), stamp);
        QCOMPARE(saved.status, EntrySaver::Result::Saved);
        QVERIFY(saved.created);
    }

    void reloadKeepsTheKnownEncoding()
    {
        const QString file = path("reload.txt");
        writeBytes(file, "caf\xE9");
        TextFormat latin;
        latin.encoding = 5;
        // Valid UTF-8 now, but the entry was Latin-1: read as Latin-1.
        writeBytes(file, "caf\xC3\xA9");
        QCOMPARE(EntryLoader::reload(file, latin).text, QString::fromUtf8("cafÃ©"));
        // Not valid in the known encoding: the opening rules decide.
        writeBytes(file, "caf\xE9\r\nnext");
        const EntryLoader::Result reread = EntryLoader::reload(file, TextFormat());
        QCOMPARE(reread.text, QString::fromUtf8("café\nnext"));
        QVERIFY(reread.format.encoding != TextEncoding::UTF8);
        QCOMPARE(reread.format.lineEnding, LineEnding::CRLF);

        // Rewritten in UTF-8 by another program: even-length ASCII is valid UTF-16 too.
        TextFormat utf16;
        utf16.encoding = TextEncoding::UTF16LE;
        writeBytes(file, "four");
        QCOMPARE(EntryLoader::reload(file, utf16).text, QString("four"));
        QCOMPARE(EntryLoader::reload(file, utf16).format.encoding, TextEncoding::UTF8);
        // A stray NUL does not make a UTF-8 entry wide.
        const QByteArray stray = QByteArray("A line of plain text.\n").repeated(4) + '\0' + "end";
        writeBytes(file, stray);
        QCOMPARE(EntryLoader::load(file).text, QString::fromUtf8(stray));

        const EntryLoader::Result folder = EntryLoader::load(m_dir->path());
        QVERIFY(!folder.readable);
        QCOMPARE(folder.error, reason(EISDIR));
        QCOMPARE(EntryLoader::load(path("missing.txt")).error, reason(ENOENT));
    }

    void failedSavesKeepTheOldFile_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::addColumn<int>("code");
        addRow("missing folder", QString("missing"), int(ENOENT));
        addRow("immutable file", QString("immutable file"), int(EPERM));
        addRow("immutable folder", QString("immutable folder"), int(EPERM));
        addRow("read-only file system", QString("read-only"), int(EROFS));
        addRow("full file system", QString("full"), int(ENOSPC));
    }

    void failedSavesKeepTheOldFile()
    {
        QFETCH(QString, fault);
        QFETCH(int, code);
        QString folder = path("notebook");
        QString text = "a new day";
        if (fault == "read-only" || fault == "full") {
            folder = mountTmpfs(fault == "full" ? "size=64k" : "size=1m");
            if (folder.isEmpty())
                QSKIP("needs root and the right to mount a tmpfs");
        }
        QDir().mkpath(folder);
        const QString file = folder + "/entry.txt";
        writeBytes(file, "yesterday");
        const FileStamp stamp = FileStamp::of(file);

        QStringList expectedFiles = {"entry.txt"};
        if (fault == "missing") {
            QVERIFY(QDir(folder).removeRecursively());
            expectedFiles.clear();
        } else if (fault == "immutable file" || fault == "immutable folder") {
            if (!lock(fault == "immutable file" ? file : folder))
                QSKIP("no immutable flag here (needs root)");
        } else if (fault == "read-only") {
            QVERIFY(run("mount", {"-o", "remount,ro", folder}));
        } else if (fault == "full") {
            QFile filler(folder + "/filler");
            QVERIFY(filler.open(QIODevice::WriteOnly));
            while (filler.write(QByteArray(4096, 'f')) == 4096 && filler.flush()) {
            }
            filler.close();
            text = QString(16384, 'w');
            expectedFiles << "filler";
        }

        const EntrySaver::Result saved = EntrySaver::save(file, text, TextFormat(), stamp);
        QCOMPARE(saved.status, EntrySaver::Result::Failed);
        QCOMPARE(saved.error, reason(code));
        QCOMPARE(readBytes(file), QByteArray(expectedFiles.isEmpty() ? "" : "yesterday"));
        QCOMPARE(filesIn(folder), expectedFiles);
        QCOMPARE(QFileInfo::exists(folder), fault != "missing");
    }

    void titlesThatCannotBeFileNames_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<bool>("fine");
        addRow("empty", QString(), false);
        addRow("slash", QString("a/b"), false);
        addRow("nul", QString("a") + QChar(0) + "b", false);
        addRow("256 bytes", QString(252, 'x'), false);
        addRow("256 bytes in two-byte letters", QString::fromUtf8("é").repeated(126), false);
        addRow("255 bytes", QString(251, 'x'), true);
        addRow("ordinary", QString::fromUtf8("Tuesday, 3 June — rain"), true);
        addRow("dots", QString(".."), true);
    }

    void titlesThatCannotBeFileNames()
    {
        QFETCH(QString, title);
        QFETCH(bool, fine);
        const QString problem = EntryNames::problemWithTitle(title, "txt", m_dir->path());
        QCOMPARE(problem.isEmpty(), fine);
        // A sentence for the user, not an untranslated id.
        QVERIFY2(!problem.startsWith("ENTRY_TITLE"), qPrintable(problem));
        if (fine)
            QCOMPARE(EntrySaver::save(path(title + ".txt"), "x", TextFormat(), FileStamp()).status,
                     EntrySaver::Result::Saved);
    }
};

VELLOX_TEST_MAIN(TestSavePipeline)
#include "tst_savepipeline.moc"
