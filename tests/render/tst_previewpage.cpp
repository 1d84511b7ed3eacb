#include "core/AppPaths.h"
#include "core/UserDefaults.h"
#include "render/PreviewPage.h"
#include "render/ProgressivePage.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <memory>

class TestPreviewPage : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<UserDefaults> m_defaults;

    static void writeStyle(const QString &name, const QByteArray &text)
    {
        QDir().mkpath(AppPaths::cssStyleFolder());
        writeBytes(AppPaths::cssStyleFolder() + name, text);
    }

private Q_SLOTS:
    void init()
    {
        TestHome::instance()->reset();
        m_defaults = std::make_unique<UserDefaults>(TestHome::instance()->path() +
                                                    QString("/home/page.conf"));
        m_defaults->registerDefaults(UserDefaults::defaultsTable());
    }
    void cleanup() { m_defaults.reset(); }

    void fieldsAreFilledInOrderAndVerbatim()
    {
        // Placeholders inside the filled-in texts must survive untouched.
        const QString page = PreviewPage::pageHtml(
            QString("/n/Entry"), QString("p{content:\"%@ %1\"}"), QString("<p>100%@ %2</p>"));
        QVERIFY(page.startsWith(QString("<html><head>")));
        QVERIFY(page.contains(QString("<base href=\"file:///n/Entry/\"><style "
                                      "type=\"text/css\"><!--p{content:\"%@ %1\"}"
                                      "--></style></head><p>100%@ %2</p></html>")));
    }

    // Bare files: the attachment folder is the entry's name without its extension. Bundles:
    // after loading the path is the text file inside, so the bundle is the base; on a style
    // reload it is the bundle itself, so the notebook is.
    void basePaths_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<QString>("extension");
        QTest::addColumn<QString>("base");
        addRow("blank", QString("/home/u/Diary/My day.txt"), QString("txt"),
               QString("/home/u/Diary/My%20day"));
        addRow("non-ASCII", QString("/home/u/Tagebuch/Größe & Café.md"), QString("md"),
               QString("/home/u/Tagebuch/Gr%C3%B6%C3%9Fe%20%26%20Caf%C3%A9"));
        addRow("URL delimiters", QString("/n/Plan #2? 100%.txt"), QString("txt"),
               QString("/n/Plan%20%232%3F%20100%25"));
        addRow("dot in a folder", QString("/n/v1.2/entry"), QString("txt"),
               QString("/n/v1.2/entry"));
        addRow("leading dot", QString("/n/.hidden"), QString("txt"), QString("/n/.hidden"));
        addRow("no entry", QString(), QString("txt"), QString());
        addRow("bundle text", QString("/n/Trip to Rome.textbundle/text.md"), QString("textbundle"),
               QString("/n/Trip%20to%20Rome.textbundle/"));
        addRow("bundle itself", QString("/n/Trip to Rome.textbundle"), QString("textbundle"),
               QString("/n/"));
    }
    void basePaths()
    {
        QFETCH(QString, entry);
        QFETCH(QString, extension);
        QFETCH(QString, base);
        QCOMPARE(PreviewPage::basePath(entry, extension), base);
    }

    void noEntryGivesTheRootBase()
    {
        writeStyle(QString("Standard.css"), "body{color:red}");
        const QString page = PreviewPage::buildPage(QString("<p>x</p>"), QString(), *m_defaults,
                                                    AppPaths::cssStyleFolder());
        QVERIFY(page.contains(QString("<base href=\"file:///\">")));
        QVERIFY(page.contains(QString("<!--body{color:red}-->")));
        QVERIFY(page.endsWith(QString("</head><p>x</p></html>")));
        QCOMPARE(PreviewPage::baseUrl(QString()), QUrl(QString("file:///")));
        QCOMPARE(PreviewPage::baseUrl(QString("/n/Trip%20to%20Rome.textbundle/")),
                 QUrl(QString("file:///n/Trip to Rome.textbundle//")));
    }

    void styleTextFollowsTheChosenStyle()
    {
        const QString folder = AppPaths::cssStyleFolder();
        // Registered default, before the folder exists.
        QCOMPARE(PreviewPage::returnCSSStyleString(*m_defaults, folder), QString());
        writeStyle(QString("Standard.css"), "h1{font-family:\"Düsseldorf\"}");
        QCOMPARE(PreviewPage::returnCSSStyleString(*m_defaults, folder),
                 QString("h1{font-family:\"Düsseldorf\"}"));
        writeStyle(QString("Night mode.css"), "body{background:#000}");
        m_defaults->setValue(Settings::SelectedCSSStyle, QString("Night mode.css"));
        QCOMPARE(PreviewPage::returnCSSStyleString(*m_defaults, folder),
                 QString("body{background:#000}"));
        // A vanished style leaves an unstyled but complete page.
        m_defaults->setValue(Settings::SelectedCSSStyle, QString("Gone.css"));
        const QString page =
            PreviewPage::buildPage(QString("<h1>T</h1>"), QString("/n/T.txt"), *m_defaults, folder);
        QVERIFY(page.contains(QString("<style type=\"text/css\"><!----></style>")));
        QVERIFY(page.contains(QString("<base href=\"file:///n/T/\">")));
    }

    void entryExtensionSettingChoosesTheBaseRule()
    {
        const QString textFile = QString("/n/E.textbundle/text.markdown");
        QVERIFY(PreviewPage::buildPage(QString(), textFile, *m_defaults, QString())
                    .contains(QString("href=\"file:///n/E.textbundle/text/\"")));
        m_defaults->setValue(Settings::DefaultFileExtensionForEntries, QString("textbundle"));
        QVERIFY(PreviewPage::buildPage(QString(), textFile, *m_defaults, QString())
                    .contains(QString("href=\"file:///n/E.textbundle//\"")));
        QCOMPARE(PreviewPage::baseUrlForEntry(textFile, *m_defaults),
                 QUrl(QString("file:///n/E.textbundle//")));
        QVERIFY(PreviewPage::buildPage(QString(), QString(), *m_defaults, QString())
                    .contains(QString("href=\"file:////\"")));
    }

    // A long page is cut only between whole top-level elements; its steps put together are
    // the page again, and markup the engine would repair its own way is never cut.
    void longPagesAreCutBetweenWholeElements_data()
    {
        QTest::addColumn<QString>("block");
        QTest::addColumn<bool>("cut");
        addRow("paragraphs", QStringLiteral("<p>a <em>b</em><br>c</p>\n"), true);
        addRow("nested lists", QStringLiteral("<ul>\n<li>a<ul><li>b</li></ul></li>\n</ul>\n"),
               true);
        addRow("quoted >", QStringLiteral("<p title=\"a > b\">x<img alt='<p>' /></p>\n"), true);
        addRow("comment", QStringLiteral("<!-- <p> --><p>x</p>\n"), true);
        addRow("lone <", QStringLiteral("<p>a < b</p>\n"), true);
        addRow("unclosed", QStringLiteral("<p>a\n"), false);
        addRow("mismatched", QStringLiteral("<div><p>a</div></p>\n"), false);
        addRow("script", QStringLiteral("<script>if (a <b) x();</script>\n"), false);
    }

    void longPagesAreCutBetweenWholeElements()
    {
        QFETCH(QString, block);
        QFETCH(bool, cut);
        const QString head = QStringLiteral("<html><head><style>p{}</style></head>");
        const QString body = block.repeated(400);
        const QString page = head + body + QStringLiteral("</html>");
        const ProgressivePage steps = ProgressivePage::split(page, 200, 1000);
        QCOMPARE(!steps.rest.isEmpty(), cut);
        if (!cut) {
            QCOMPARE(steps.first, page);
            return;
        }
        QVERIFY(steps.first.startsWith(head));
        QVERIFY(steps.first.endsWith(QStringLiteral("</html>")));
        const QString firstBody = steps.first.mid(head.size()).chopped(7);
        QCOMPARE(firstBody + steps.rest.join(QString()), body);
        // Every step ends where a block ends.
        QVERIFY(firstBody.endsWith(block));
        for (const QString &piece : steps.rest)
            QVERIFY(piece.endsWith(block));
    }
};

VELLOX_TEST_MAIN(TestPreviewPage)
#include "tst_previewpage.moc"
