#include "ExportFixture.h"
#include "export/ExportStaging.h"
#include "support/TestHome.h"

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QtTest>

namespace {

QString readText(const QString &path)
{
    return QString::fromUtf8(readBytes(path));
}

// An "identity" converter that marks what it converted, so a test sees which texts went
// through the markup step without depending on a converter's output.
QString markConverted(int language, const QString &text)
{
    return QStringLiteral("<p lang=\"%1\">").arg(language) + text + QStringLiteral("</p>");
}

} // namespace

class TestExport : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // Joined entries carry their bold title, an empty line, the text and two line feeds each,
    // in list order, and their attachments meet in one folder where the first of a name wins.
    void joiningWithTitles()
    {
        ExportFixture f;
        f.addEntry(QStringLiteral("A.txt"), QStringLiteral("alpha"));
        f.addEntry(QStringLiteral("B.txt"), QStringLiteral("bravo äöü"));
        f.addEntry(QStringLiteral("C.txt"), QStringLiteral("charlie"));
        f.addImage(QStringLiteral("C"), QStringLiteral("same.png"), Qt::green);
        f.addImage(QStringLiteral("A"), QStringLiteral("same.png"), Qt::red);
        ExportOptions o =
            f.options(int(ExportFormat::Html), 1,
                      {QStringLiteral("C.txt"), QStringLiteral("A.txt"), QStringLiteral("B.txt")});
        o.titles = true;
        o.joined = true;
        const ExportFolders folders(f.support.path());
        QVERIFY(folders.create());
        ExportStaging staging(o, folders);
        CancelFlag cancel;
        staging.stageEntries(cancel);
        staging.addTitleLines();
        staging.join();
        QCOMPARE(staging.workingText(QStringLiteral("complete")),
                 QStringLiteral("**C**\n\ncharlie\n\n**A**\n\nalpha\n\n**B**\n\nbravo äöü\n\n"));
        QCOMPARE(filesIn(folders.temp + QStringLiteral("/completeAttachments")),
                 QStringList{QStringLiteral("same.png")});
        QCOMPARE(
            QImage(folders.temp + QStringLiteral("/completeAttachments/same.png")).pixelColor(0, 0),
            QColor(Qt::green));
        staging.convertMarkup(markConverted, cancel, {});
        QCOMPARE(staging.stagedBases(), QStringList{QStringLiteral("complete")});
        QVERIFY(staging.workingText(QStringLiteral("complete")).startsWith("<p lang=\"1\">**C**"));
        folders.removeAll();
    }

    // TextBundle links to "assets/..." resolve to the staged attachments: the picture ends up
    // inside the HTML file, the chosen style sheet too, and nothing stays in the support folder.
    void textBundleHtmlCarriesPicturesAndStyle()
    {
        ExportFixture f;
        const QString bundle = f.notebook.filePath(QStringLiteral("Trip.textbundle"));
        QDir().mkpath(bundle + QStringLiteral("/assets"));
        writeBytes(bundle + QStringLiteral("/text.md"), "# Trip\n\n![view](assets/view.png)\n");
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(Qt::blue);
        image.save(bundle + QStringLiteral("/assets/view.png"));
        const QString css = f.support.filePath(QStringLiteral("../mine.css"));
        writeBytes(css, "h1 { color: #123456; }");
        ExportOptions o =
            f.options(int(ExportFormat::Html), 1, {QStringLiteral("Trip.textbundle")});
        o.entryExtension = QStringLiteral("textbundle");
        o.cssFile = css;
        const ExportReport report = ExportFixture::run(o);
        QFile::remove(css);
        QVERIFY2(report.failures.isEmpty(), qPrintable(report.failures.join('\n')));
        QCOMPARE(report.exported, 1);
        const QString html = readText(f.destination.filePath(QStringLiteral("Trip.html")));
        QVERIFY(html.contains(QLatin1String("src=\"data:image/png;base64,")));
        QVERIFY(!html.contains(QLatin1String("assets/")));
        QVERIFY(html.contains(QLatin1String("#123456")));
        QVERIFY(f.supportFolderClean());
    }

    // Plain text goes out as written; an entry deleted meanwhile is named in the report, and
    // plain text made into HTML is escaped.
    void plainTextOutputs()
    {
        ExportFixture f;
        const QString text = QStringLiteral("Zeile 1 < 2 & ü\n\nZweiter Absatz\n");
        f.addEntry(QStringLiteral("Eintrag.txt"), text);
        ExportOptions o = f.options(int(ExportFormat::PlainText), 0,
                                    {QStringLiteral("Eintrag.txt"), QStringLiteral("Weg.txt")});
        ExportReport report = ExportFixture::run(o);
        QCOMPARE(report.exported, 1);
        QCOMPARE(report.total, 2);
        QCOMPARE(report.failures.size(), 1);
        QVERIFY(report.summary().contains(QLatin1String("Weg.txt")));
        QCOMPARE(readText(f.destination.filePath(QStringLiteral("Eintrag.txt"))), text);

        o.format = int(ExportFormat::Html);
        report = ExportFixture::run(o);
        const QString html = readText(f.destination.filePath(QStringLiteral("Eintrag.html")));
        QVERIFY(html.contains(QStringLiteral("<p>Zeile 1 &lt; 2 &amp; ü</p>")));
        QVERIFY(html.contains(QStringLiteral("<p>Zweiter Absatz</p>")));
        QVERIFY(f.supportFolderClean());
    }

    // Cancelling halfway writes nothing to the destination and leaves no working files; a
    // destination that cannot be written is reported before any work is done.
    void cancelAndUnwritableDestination()
    {
        ExportFixture f;
        QStringList names;
        for (int i = 0; i < 6; ++i) {
            names << QStringLiteral("Entry %1.txt").arg(i);
            f.addEntry(names.last(), QStringLiteral("text %1").arg(i));
        }
        CancelFlag cancel;
        int converted = 0;
        ExportJob::Tools tools;
        tools.converter = [&](int language, const QString &text) {
            if (++converted == 3)
                cancel.raise();
            return markConverted(language, text);
        };
        ExportJob job(f.options(int(ExportFormat::Html), 1, names), cancel, tools);
        job.prepare();
        job.finish();
        QVERIFY(job.report().cancelled);
        QCOMPARE(converted, 3);
        QVERIFY(filesIn(f.destination.path()).isEmpty());
        QVERIFY(f.supportFolderClean());

        ExportOptions o = f.options(int(ExportFormat::PlainText), 0, names);
        o.destination = f.notebook.filePath(QStringLiteral("Entry 0.txt"));
        const ExportReport report = ExportFixture::run(o);
        QCOMPARE(report.exported, 0);
        QVERIFY(report.summary().contains(o.destination));
        QVERIFY(f.supportFolderClean());
    }

    // Entries converted side by side each end up in their own file, and the converter
    // processes of the helper threads end with the export (only the thread's own stays).
    void entriesConvertedSideBySide()
    {
        if (!QFileInfo(QStringLiteral("/usr/bin/php")).isExecutable())
            QSKIP("php is not installed (Debian package php-cli)");
        ExportFixture f;
        QStringList names;
        for (int i = 0; i < 12; ++i) {
            names << QStringLiteral("Notiz %1.txt").arg(i);
            f.addEntry(names.last(), QStringLiteral("Eintrag *n%1*\n").arg(i));
        }
        const ExportReport report =
            ExportFixture::run(f.options(int(ExportFormat::Html), 1, names));
        QVERIFY2(report.failures.isEmpty(), qPrintable(report.summary()));
        QCOMPARE(report.exported, 12);
        for (int i = 0; i < 12; ++i) {
            const QString html =
                readText(f.destination.filePath(QStringLiteral("Notiz %1.html").arg(i)));
            QVERIFY2(html.contains(QStringLiteral("<em>n%1</em>").arg(i)), qPrintable(html));
            QCOMPARE(html.count(QLatin1String("<em>")), 1);
        }
        QProcess children;
        children.start(QStringLiteral("pgrep"),
                       {QStringLiteral("-P"), QString::number(QCoreApplication::applicationPid()),
                        QStringLiteral("php")});
        QVERIFY(children.waitForFinished(10000));
        QVERIFY2(children.readAllStandardOutput().count('\n') <= 1, "a converter process lives on");
        QVERIFY(f.supportFolderClean());
    }

    // A joined export with a picture larger than any single read arrives byte for byte.
    void largePictureArrivesWhole()
    {
        ExportFixture f;
        f.addEntry(QStringLiteral("Eins.txt"), QStringLiteral("![a](big.png)\n"));
        f.addEntry(QStringLiteral("Zwei.txt"), QStringLiteral("two\n"));
        QDir().mkpath(f.notebook.filePath(QStringLiteral("Eins")));
        // Noise does not compress, so the file is several MB.
        QImage noise(1200, 900, QImage::Format_RGB32);
        quint32 seed = 12345;
        for (int y = 0; y < noise.height(); ++y)
            for (int x = 0; x < noise.width(); ++x)
                noise.setPixel(x, y, (seed = seed * 1664525u + 1013904223u) >> 8);
        const QString picture = f.notebook.filePath(QStringLiteral("Eins/big.png"));
        QVERIFY(noise.save(picture, "PNG"));
        const QByteArray original = readBytes(picture);
        QVERIFY(original.size() > 3 * (1 << 20));

        ExportOptions o = f.options(int(ExportFormat::Html), 1,
                                    {QStringLiteral("Eins.txt"), QStringLiteral("Zwei.txt")});
        o.joined = true;
        o.joinedName = QStringLiteral("Alles");
        const ExportReport report = ExportFixture::run(o);
        QVERIFY2(report.failures.isEmpty(), qPrintable(report.summary()));
        const QString html = readText(f.destination.filePath(QStringLiteral("Alles.html")));
        const QString marker = QStringLiteral("data:image/png;base64,");
        const qsizetype start = html.indexOf(marker);
        QVERIFY(start > 0);
        const qsizetype end = html.indexOf(QLatin1Char('"'), start);
        const QByteArray inlined = QByteArray::fromBase64(
            html.mid(start + marker.size(), end - start - marker.size()).toLatin1());
        QVERIFY(inlined == original);
        QVERIFY(f.supportFolderClean());
    }

    // A cancelled book and a destination that is gone by the time the files are moved in
    // leave nothing behind: no staging in the data folder, nothing in the destination, and
    // every file that could not be written is named.
    void cancelledBookAndVanishedDestinationLeaveNothing()
    {
        ExportFixture f;
        QStringList names;
        for (int i = 0; i < 5; ++i) {
            names << QStringLiteral("Kapitel %1.txt").arg(i);
            f.addEntry(names.last(), QStringLiteral("text %1 ![p](p.png)").arg(i));
            f.addImage(QStringLiteral("Kapitel %1").arg(i), QStringLiteral("p.png"), Qt::red);
        }
        CancelFlag cancel;
        int converted = 0;
        ExportJob::Tools tools;
        tools.converter = [&](int language, const QString &text) {
            if (++converted == 2)
                cancel.raise();
            return markConverted(language, text);
        };
        ExportOptions o = f.options(int(ExportFormat::Epub), 1, names);
        {
            ExportJob job(o, cancel, tools);
            job.prepare();
            job.finish();
            QVERIFY(job.report().cancelled);
        }
        QCOMPARE(converted, 2);
        QVERIFY(filesIn(f.destination.path()).isEmpty());
        QVERIFY2(f.supportFolderClean(), qPrintable(filesIn(f.support.path()).join(' ')));

        o.format = int(ExportFormat::PlainText);
        ExportJob job(o, CancelFlag());
        job.prepare();
        QVERIFY(f.destination.remove());
        job.finish();
        const ExportReport report = job.report();
        QCOMPARE(report.exported, 0);
        QCOMPARE(report.failures.size(), 5);
        for (int i = 0; i < 5; ++i)
            QVERIFY2(report.summary().contains(QStringLiteral("Kapitel %1.txt").arg(i)),
                     qPrintable(report.summary()));
        QVERIFY(!QFileInfo::exists(f.destination.path()));
        QVERIFY(f.supportFolderClean());
    }

    // LibreOffice gets all of a long list in one go (its launcher would drop what comes after
    // about 250 arguments), on a new profile that asks for a restart first, and a file it
    // cannot convert is named in the summary while all the others arrive.
    void longListInOneOfficeCallWithOneFailure()
    {
        const QString launcher = QFileInfo(QStringLiteral("/usr/bin/soffice")).canonicalFilePath();
        const QString office = QFileInfo(launcher).absolutePath() + QStringLiteral("/soffice.bin");
        if (!QFileInfo(office).isExecutable())
            QSKIP("LibreOffice is not installed (Debian package libreoffice-writer-nogui)");
        ExportFixture f;
        QStringList names;
        for (int i = 0; i < 260; ++i) {
            names << QStringLiteral("Tag %1.txt").arg(i, 3, 10, QLatin1Char('0'));
            f.addEntry(names.last(), QStringLiteral("Seite %1").arg(i));
        }
        // The office program, once a file it is handed has gone: it cannot load that one.
        QTemporaryDir programs;
        const QString calls = programs.filePath(QStringLiteral("calls"));
        writeBytes(programs.filePath(QStringLiteral("soffice")), "#!/bin/sh\nexit 1\n");
        writeBytes(
            programs.filePath(QStringLiteral("soffice.bin")),
            QStringLiteral("#!/bin/sh\necho call >> '%1'\nfor a in \"$@\"; do case \"$a\" in "
                           "*'/Tag 137.html') rm -f \"$a\";; esac; done\nexec '%2' \"$@\"\n")
                .arg(calls, office)
                .toUtf8());
        for (const char *name : {"soffice", "soffice.bin"})
            QFile::setPermissions(programs.filePath(QString::fromLatin1(name)),
                                  QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        ExportJob::Tools tools;
        tools.soffice = programs.filePath(QStringLiteral("soffice"));
        ExportJob job(f.options(int(ExportFormat::Word), 0, names), CancelFlag(), tools);
        job.prepare();
        job.finish();
        const ExportReport report = job.report();
        QCOMPARE(report.exported, 259);
        QCOMPARE(report.failures.size(), 1);
        QVERIFY2(report.summary().contains(QLatin1String("Tag 137")), qPrintable(report.summary()));
        const QStringList written = filesIn(f.destination.path());
        QCOMPARE(written.size(), 259);
        QVERIFY(written.contains(QStringLiteral("Tag 259.doc")));
        QVERIFY(!written.contains(QStringLiteral("Tag 137.doc")));
        // One call, and one more only when the new profile asks for it.
        QVERIFY(readBytes(calls).count("call") <= 2);
        QVERIFY(f.supportFolderClean());
    }

    // Word, OpenDocument and RTFD through LibreOffice: the text and the pictures are in the
    // files, read back by LibreOffice itself (one call for all of them, since it starts slowly).
    void officeFormatsReadBack()
    {
        if (!QFileInfo(QStringLiteral("/usr/bin/soffice")).isExecutable())
            QSKIP("LibreOffice is not installed (Debian package libreoffice-writer-nogui)");
        ExportFixture f;
        f.addEntry(QStringLiteral("Morgen.txt"),
                   QStringLiteral("# Früh\n\nKaffee ☕\n\n![x](sun.png)\n"));
        f.addImage(QStringLiteral("Morgen"), QStringLiteral("sun.png"), Qt::yellow);
        f.addEntry(QStringLiteral("Abend.txt"), QStringLiteral("Tee *am* Abend\n"));

        ExportOptions o = f.options(int(ExportFormat::Word), 1,
                                    {QStringLiteral("Morgen.txt"), QStringLiteral("Abend.txt")});
        ExportReport report = ExportFixture::run(o);
        QVERIFY2(report.failures.isEmpty(), qPrintable(report.failures.join('\n')));
        QCOMPARE(report.exported, 2);
        o.format = int(ExportFormat::OpenDocument);
        o.joined = true;
        o.titles = true;
        o.joinedName = QStringLiteral("Tag");
        report = ExportFixture::run(o);
        QVERIFY2(report.failures.isEmpty(), qPrintable(report.failures.join('\n')));
        o.format = int(ExportFormat::Rtfd);
        o.joined = false;
        report = ExportFixture::run(o);
        QVERIFY2(report.failures.isEmpty(), qPrintable(report.failures.join('\n')));
        QVERIFY(f.supportFolderClean());

        const QString dest = f.destination.path();
        QCOMPARE(filesIn(dest),
                 QStringList({QStringLiteral("Abend.doc"), QStringLiteral("Abend.rtfd"),
                              QStringLiteral("Morgen.doc"), QStringLiteral("Morgen.rtfd"),
                              QStringLiteral("Tag.odt")}));
        QCOMPARE(filesIn(dest + QStringLiteral("/Morgen.rtfd")),
                 QStringList({QStringLiteral("TXT.rtf"), QStringLiteral("sun.png")}));
        const QString rtf = readText(dest + QStringLiteral("/Morgen.rtfd/TXT.rtf"));
        QVERIFY(rtf.startsWith(QLatin1String("{\\rtf")));
        QVERIFY(rtf.contains(QLatin1String("\\NeXTGraphic sun.png \\width800 \\height600")));
        QVERIFY(zipMember(dest + QStringLiteral("/Tag.odt"), QStringLiteral("content.xml"))
                    .contains("draw:image"));
        QVERIFY(readBytes(dest + QStringLiteral("/Morgen.doc")).contains("\x89PNG") ||
                readBytes(dest + QStringLiteral("/Morgen.doc")).contains("\xff\xd8\xff"));

        QFile::copy(dest + QStringLiteral("/Morgen.rtfd/TXT.rtf"),
                    dest + QStringLiteral("/Rtfd.rtf"));
        QTemporaryDir profile, text;
        QProcess office;
        office.start(QStringLiteral("/usr/bin/soffice"),
                     {QStringLiteral("-env:UserInstallation=") +
                          QUrl::fromLocalFile(profile.path()).toString(),
                      QStringLiteral("--headless"), QStringLiteral("--convert-to"),
                      QStringLiteral("txt:Text (encoded):UTF8"), QStringLiteral("--outdir"),
                      text.path(), dest + QStringLiteral("/Morgen.doc"),
                      dest + QStringLiteral("/Tag.odt"), dest + QStringLiteral("/Rtfd.rtf")});
        QVERIFY(office.waitForFinished(240000));
        const QString morgen = readText(text.filePath(QStringLiteral("Morgen.txt")));
        QVERIFY2(morgen.contains(QStringLiteral("Früh")) &&
                     morgen.contains(QStringLiteral("Kaffee ☕")),
                 qPrintable(morgen));
        QVERIFY(!morgen.contains(QLatin1String("# Früh")));
        const QString tag = readText(text.filePath(QStringLiteral("Tag.txt")));
        QVERIFY2(tag.indexOf(QStringLiteral("Morgen")) < tag.indexOf(QStringLiteral("Abend")) &&
                     tag.contains(QStringLiteral("Tee am Abend")),
                 qPrintable(tag));
        QVERIFY(readText(text.filePath(QStringLiteral("Rtfd.txt")))
                    .contains(QStringLiteral("Kaffee ☕")));
    }
};

VELLOX_TEST_MAIN(TestExport)
#include "tst_export.moc"
