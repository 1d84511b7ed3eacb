#include "ExportFixture.h"
#include "export/ePubCreator.h"
#include "render/TaskController.h"
#include "support/TestHome.h"

#include "core/AppPaths.h"

#include <QFile>
#include <QtTest>

namespace {

// Each language's way of writing a heading, emphasis, a quotation, a table and a picture.
QString sampleText(int language)
{
    switch (language) {
    case 1:
    case 7:
        return QStringLiteral(
            "# Tag am Meer\n\nSome *text* with a note[^1] and <u>underline</u>.\n\n"
            "- [ ] still to do\n- [x] done\n\n> quoted\n\n| a | b |\n|---|---|\n| 1 | 2 |\n\n"
            "![Photo](photo.png) and [the scan](scan.pdf)\n\n[^1]: The note.\n");
    case 2:
        return QStringLiteral("h1. Tag am Meer\n\n*strong* _em_ +inserted+\n\nbq. quoted\n\n"
                              "|a|b|\n|1|2|\n\n!photo.png!\n");
    case 3:
        return QStringLiteral("== Tag am Meer ==\n'''bold''' ''italic''\n\n"
                              "{|\n| a || b\n|-\n| 1 || 2\n|}\n\n[[Image:photo.png]]\n");
    case 4:
        return QStringLiteral("[b]bold[/b] [u]under[/u] [i]it[/i]\n[quote]quoted text[/quote]\n"
                              "[img]photo.png[/img]\nline two");
    case 6:
        return QStringLiteral("<section><h1 id=\"a:b\">Tag</h1><blockquote>bare text</blockquote>"
                              "<p><u>u</u> <input type=\"checkbox\" checked> done "
                              "<a href=\"#a:b\">up</a> <img src=\"photo.png\"></p>"
                              "<figure><figcaption>Cap</figcaption></figure></section>");
    default:
        return QStringLiteral("A heading\n\n* Some text, a line\nand another.\n");
    }
}

} // namespace

class TestEpub : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // One chapter from each language's converter, all in one book: whatever the converters
    // write (HTML5 sections, check boxes, ids with colons, bare text in quotations, links to
    // attachments that are no pictures), the book passes epubcheck without a warning.
    void everyLanguageMakesAValidBook()
    {
        QTemporaryDir staging, app;
        const QString t = staging.path();
        QStringList order;
        TaskController converter;
        for (int language = 1; language <= 7; ++language) {
            const QString base = QStringLiteral("Sprache %1 – Grüße").arg(language);
            writeBytes(t + QLatin1Char('/') + base + QStringLiteral(".html"),
                       converter.convert(language, sampleText(language)).toUtf8());
            order << base + QStringLiteral(".txt");
        }
        QDir().mkpath(t + QStringLiteral("/completeAttachments"));
        QImage image(40, 30, QImage::Format_RGB32);
        image.fill(Qt::red);
        image.save(t + QStringLiteral("/completeAttachments/photo.png"));
        writeBytes(t + QStringLiteral("/completeAttachments/scan.pdf"), "%PDF-1.4");
        QFile::copy(AppPaths::resource(QStringLiteral("export/cover.jpg")),
                    t + QStringLiteral("/cover.jpg"));
        QFile::copy(AppPaths::resource(QStringLiteral("export/css.css")),
                    t + QStringLiteral("/css.css"));

        CancelFlag cancel;
        ePubCreator creator(app.path(), cancel);
        QVERIFY2(creator.createEpubBook(t, QString(),
                                        {{QStringLiteral("title"), QStringLiteral("Alle")}}, order),
                 qPrintable(creator.problems().join('\n')));
        QVERIFY2(creator.problems().isEmpty(), qPrintable(creator.problems().join('\n')));
        QCOMPARE(creator.chapters().size(), 7);
        const QString problems = epubcheckProblems(creator.bookFile());
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
    }

    // A whole export to a book: the chapters follow the export list, a missing entry takes
    // no chapter number, details are escaped, "mimetype" comes first and stored, a PNG cover
    // is stored as the JPEG its name claims, and nothing is left in the support folder.
    void exportWritesBookInListOrder()
    {
        ExportFixture f;
        f.addEntry(QStringLiteral("Grüße aus Köln – 日本.md"), sampleText(1));
        f.addImage(QStringLiteral("Grüße aus Köln – 日本"), QStringLiteral("photo.png"), Qt::red);
        f.addEntry(QStringLiteral("Zweiter Tag.md"), QStringLiteral("second *day*"));
        QTemporaryDir coverFolder;
        const QString cover = coverFolder.filePath(QStringLiteral("mine.png"));
        QImage(20, 30, QImage::Format_RGB32).save(cover, "PNG");
        ExportOptions o = f.options(int(ExportFormat::Epub), 1,
                                    {QStringLiteral("Zweiter Tag.md"), QStringLiteral("Gone.md"),
                                     QStringLiteral("Grüße aus Köln – 日本.md")});
        o.entryExtension = QStringLiteral("md");
        o.joined = true;
        o.titles = true;
        o.joinedName = QStringLiteral("Book");
        o.coverImage = cover;
        o.bookDetails = {{QStringLiteral("title"), QStringLiteral("Tom & Jerry <1>")},
                         {QStringLiteral("authorname"), QStringLiteral("Müller")},
                         {QStringLiteral("languagecode"), QStringLiteral("de")}};
        const ExportReport report = ExportFixture::run(o);
        QVERIFY(f.supportFolderClean());
        QCOMPARE(report.failures.size(), 1);
        QVERIFY(report.failures.first().contains(QLatin1String("Gone.md")));
        QCOMPARE(report.exported, 2);
        const QString book = f.destination.filePath(QStringLiteral("Book.epub"));

        const QByteArray bytes = readBytes(book);
        QVERIFY(bytes.size() > 60);
        QCOMPARE(bytes.mid(0, 4), QByteArray("PK\x03\x04"));
        QCOMPARE(int(uchar(bytes.at(8))) | int(uchar(bytes.at(9))) << 8, 0);
        QCOMPARE(int(uchar(bytes.at(28))), 0);
        QCOMPARE(bytes.mid(30, 8), QByteArray("mimetype"));
        QCOMPARE(bytes.mid(38, 20), QByteArray("application/epub+zip"));

        const QString opf = QString::fromUtf8(zipMember(book, QStringLiteral("book.opf")));
        QVERIFY(opf.contains(QLatin1String("<dc:title>Tom &amp; Jerry &lt;1&gt;</dc:title>")));
        QVERIFY(opf.contains(QLatin1String("href=\"3.html\"")));
        QVERIFY(!opf.contains(QLatin1String("href=\"4.html\"")));
        QVERIFY(opf.contains(QLatin1String("href=\"images/files/photo.png\"")));
        const QString ncx = QString::fromUtf8(zipMember(book, QStringLiteral("book.ncx")));
        const qsizetype second = ncx.indexOf(QLatin1String("Zweiter Tag"));
        const qsizetype first = ncx.indexOf(QStringLiteral("Grüße aus Köln – 日本"));
        QVERIFY(second > 0 && first > second);
        QVERIFY(zipMember(book, QStringLiteral("2.html")).contains("<em>day</em>"));
        QVERIFY(
            zipMember(book, QStringLiteral("3.html")).contains("src=\"images/files/photo.png\""));
        QCOMPARE(zipMember(book, QStringLiteral("images/cover.jpg")).left(3),
                 QByteArray("\xff\xd8\xff"));
        const QString problems = epubcheckProblems(book);
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
    }
};

VELLOX_TEST_MAIN(TestEpub)
#include "tst_epub.moc"
