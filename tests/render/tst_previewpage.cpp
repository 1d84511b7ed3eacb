#include "core/AppPaths.h"
#include "core/UserDefaults.h"
#include "render/PreviewPage.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QtTest>

class TestPreviewPage : public QObject
{
    Q_OBJECT
private:
    static void writeStyle(const QString &name, const QByteArray &text)
    {
        QDir().mkpath(AppPaths::cssStyleFolder());
        writeBytes(AppPaths::cssStyleFolder() + name, text);
    }

private Q_SLOTS:
    void init() { TestHome::instance()->reset(); }

    void templateIsFilledInOrderAndVerbatim()
    {
        QCOMPARE(PreviewPage::pageTemplate(),
                 QStringLiteral("<html><head><meta http-equiv=\"Content-Type\" "
                                "content=\"text/html; charset=utf-8\" /><base "
                                "href=\"file://%@/\"><style type=\"text/css\"><!--%@--></style>"
                                "</head>%@</html>"));
        // Placeholders inside the filled-in texts must survive untouched.
        const QString page = PreviewPage::pageHtml(QStringLiteral("/n/Entry"),
                                                   QStringLiteral("p{content:\"%@ %1\"}"),
                                                   QStringLiteral("<p>100%@ %2</p>"));
        QCOMPARE(page, QStringLiteral("<html><head><meta http-equiv=\"Content-Type\" "
                                      "content=\"text/html; charset=utf-8\" /><base "
                                      "href=\"file:///n/Entry/\"><style type=\"text/css\"><!--"
                                      "p{content:\"%@ %1\"}--></style></head><p>100%@ "
                                      "%2</p></html>"));
    }

    void basePathForBareFilesDropsTheExtensionAndEscapes()
    {
        QCOMPARE(PreviewPage::basePath(QStringLiteral("/home/u/Diary/My day.txt"),
                                       QStringLiteral("txt")),
                 QStringLiteral("/home/u/Diary/My%20day"));
        QCOMPARE(PreviewPage::basePath(QStringLiteral("/home/u/Tagebuch/Größe & Café.md"),
                                       QStringLiteral("md")),
                 QStringLiteral("/home/u/Tagebuch/Gr%C3%B6%C3%9Fe%20%26%20Caf%C3%A9"));
        // Characters that would end the path inside a URL stay part of the name.
        QCOMPARE(
            PreviewPage::basePath(QStringLiteral("/n/Plan #2? 100%.txt"), QStringLiteral("txt")),
            QStringLiteral("/n/Plan%20%232%3F%20100%25"));
        // A dot in a folder name is not an extension, nor is a leading dot.
        QCOMPARE(PreviewPage::basePath(QStringLiteral("/n/v1.2/entry"), QStringLiteral("txt")),
                 QStringLiteral("/n/v1.2/entry"));
        QCOMPARE(PreviewPage::basePath(QStringLiteral("/n/.hidden"), QStringLiteral("txt")),
                 QStringLiteral("/n/.hidden"));
        QCOMPARE(PreviewPage::basePath(QString(), QStringLiteral("txt")), QString());
    }

    void basePathForTextBundlesDependsOnWhichPathIsGiven()
    {
        // After loading, the path is the text file inside the bundle: the bundle is the base.
        QCOMPARE(PreviewPage::basePath(QStringLiteral("/n/Trip to Rome.textbundle/text.md"),
                                       QStringLiteral("textbundle")),
                 QStringLiteral("/n/Trip%20to%20Rome.textbundle/"));
        // On a style reload it is the bundle itself, so the notebook becomes the base.
        QCOMPARE(PreviewPage::basePath(QStringLiteral("/n/Trip to Rome.textbundle"),
                                       QStringLiteral("textbundle")),
                 QStringLiteral("/n/"));
        QCOMPARE(PreviewPage::baseUrl(QStringLiteral("/n/Trip%20to%20Rome.textbundle/")),
                 QUrl(QStringLiteral("file:///n/Trip to Rome.textbundle//")));
    }

    void noEntryGivesTheRootBase()
    {
        writeStyle(QStringLiteral("Standard.css"), "body{color:red}");
        const QString page =
            PreviewPage::buildPage(QStringLiteral("<p>x</p>"), QString(), UserDefaults::standard(),
                                   AppPaths::cssStyleFolder());
        QVERIFY(page.contains(QStringLiteral("<base href=\"file:///\">")));
        QVERIFY(page.contains(QStringLiteral("<!--body{color:red}-->")));
        QVERIFY(page.endsWith(QStringLiteral("</head><p>x</p></html>")));
        QCOMPARE(PreviewPage::baseUrl(QString()), QUrl(QStringLiteral("file:///")));
    }

    void styleTextFollowsTheChosenStyle()
    {
        UserDefaults &defaults = UserDefaults::standard();
        // Registered default, before the folder exists.
        QCOMPARE(PreviewPage::returnCSSStyleString(), QString());
        writeStyle(QStringLiteral("Standard.css"), "h1{font-family:\"Düsseldorf\"}");
        QCOMPARE(PreviewPage::returnCSSStyleString(),
                 QStringLiteral("h1{font-family:\"Düsseldorf\"}"));
        writeStyle(QStringLiteral("Night mode.css"), "body{background:#000}");
        defaults.setString(QStringLiteral("SelectedCSSStyle"), QStringLiteral("Night mode.css"));
        QCOMPARE(PreviewPage::returnCSSStyleString(), QStringLiteral("body{background:#000}"));
        // A vanished style leaves an unstyled but complete page.
        defaults.setString(QStringLiteral("SelectedCSSStyle"), QStringLiteral("Gone.css"));
        QCOMPARE(PreviewPage::returnCSSStyleString(), QString());
        const QString page =
            PreviewPage::buildPage(QStringLiteral("<h1>T</h1>"), QStringLiteral("/n/T.txt"),
                                   defaults, AppPaths::cssStyleFolder());
        QVERIFY(page.contains(QStringLiteral("<style type=\"text/css\"><!----></style>")));
        QVERIFY(page.contains(QStringLiteral("<base href=\"file:///n/T/\">")));
    }

    void entryExtensionSettingChoosesTheBaseRule()
    {
        UserDefaults &defaults = UserDefaults::standard();
        const QString textFile = QStringLiteral("/n/E.textbundle/text.markdown");
        QVERIFY(PreviewPage::buildPage(QString(), textFile, defaults, QString())
                    .contains(QStringLiteral("href=\"file:///n/E.textbundle/text/\"")));
        defaults.setString(QStringLiteral("defaultFileExtensionForEntries"),
                           QStringLiteral("textbundle"));
        QVERIFY(PreviewPage::buildPage(QString(), textFile, defaults, QString())
                    .contains(QStringLiteral("href=\"file:///n/E.textbundle//\"")));
        QVERIFY(PreviewPage::buildPage(QString(), QString(), defaults, QString())
                    .contains(QStringLiteral("href=\"file:////\"")));
    }

    void shippedStylesExistAndNightIsDark()
    {
        const QStringList names = {QStringLiteral("Standard"), QStringLiteral("Delicious Contrast"),
                                   QStringLiteral("Delicious White"),
                                   QStringLiteral("Standard Night")};
        for (const QString &name : names) {
            QFile file(
                AppPaths::resource(QStringLiteral("styles/") + name + QStringLiteral(".css")));
            QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(name));
            const QString css = QString::fromUtf8(file.readAll());
            for (const char *needle :
                 {"h1", "blockquote", "pre", "table", "img", "max-width: 100%", "footnote", "hr"})
                QVERIFY2(css.contains(QLatin1String(needle)), qPrintable(name + " " + needle));
            QCOMPARE(css.count(QLatin1Char('{')), css.count(QLatin1Char('}')));
        }
    }
};

VELLOX_TEST_MAIN(TestPreviewPage)
#include "tst_previewpage.moc"
