#include "core/AppPaths.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "render/StyleFolderSeeder.h"
#include "render/widgets/CSSStykeController.h"
#include "render/widgets/PreviewController.h"
#include "render/widgets/PreviewView.h"
#include "render/widgets/PreviewWebPage.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonDocument>
#include <QListWidget>
#include <QStackedWidget>
#include <QTextEdit>
#include <QWebEngineScript>
#include <QtTest>

// Receives the links the preview hands to the desktop.
class LinkCatcher : public QObject
{
    Q_OBJECT
public:
    QList<QUrl> urls;
public Q_SLOTS:
    void openUrl(const QUrl &url) { urls << url; }
};

class TestPreview : public QObject
{
    Q_OBJECT
private:
    QString m_notebook;

    static QVariant evaluate(PreviewView *view, const QString &script)
    {
        QVariant result;
        bool done = false;
        view->page()->runJavaScript(script, QWebEngineScript::ApplicationWorld,
                                    [&](const QVariant &value) {
                                        result = value;
                                        done = true;
                                    });
        if (!QTest::qWaitFor([&] { return done; }, 10000))
            return QVariant();
        return result;
    }

    static bool waitForLoad(QSignalSpy &spy)
    {
        if (!spy.wait(20000) && spy.isEmpty())
            return false;
        return spy.takeFirst().value(0).toBool();
    }

    // A notebook folder with an entry whose attachment folder holds a 40x30 picture.
    QString makeEntry(const QString &title)
    {
        const QString entry = m_notebook + title + QStringLiteral(".txt");
        QFile file(entry);
        if (!file.open(QIODevice::WriteOnly))
            return QString();
        const QString attachments = m_notebook + title;
        QDir().mkpath(attachments);
        QImage picture(40, 30, QImage::Format_RGB32);
        picture.fill(Qt::red);
        picture.save(attachments + QStringLiteral("/pic.png"));
        return entry;
    }

    static void seedStyles()
    {
        QVERIFY(StyleFolderSeeder::seed(AppPaths::cssStyleFolder(),
                                        QStringLiteral(VELLOX_SOURCE_RESOURCES "/styles")));
    }

    static int bodyBrightness(PreviewView *view)
    {
        const QString rgb =
            evaluate(view, QStringLiteral("getComputedStyle(document.body).backgroundColor"))
                .toString();
        const QStringList parts = rgb.section(QLatin1Char('('), 1)
                                      .section(QLatin1Char(')'), 0, 0)
                                      .split(QLatin1Char(','));
        if (parts.size() < 3)
            return -1;
        return parts[0].trimmed().toInt() + parts[1].trimmed().toInt() + parts[2].trimmed().toInt();
    }

private Q_SLOTS:
    void init()
    {
        TestHome::instance()->reset();
        m_notebook = TestHome::instance()->path() + QStringLiteral("/home/Mein Tagebuch/");
        QDir().mkpath(m_notebook);
    }

    void everyLanguagePreviewsWithAttachmentImages_data()
    {
        QTest::addColumn<int>("language");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("hasHeadingsAndTables");
        const QString markdown = QStringLiteral(
            "# Heading\n\nSome *emphasis* and **strong**.\n\n- one\n- two\n\n"
            "[link](https://example.org/)\n\n| A | B |\n|---|---|\n| 1 | 2 |\n\n![pic](pic.png)\n");
        addRow("Markdown", 1, markdown, true);
        addRow("Textile", 2,
               QStringLiteral("h1. Heading\n\nSome _emphasis_ and *strong*.\n\n* one\n* "
                              "two\n\n\"link\":https://example.org/\n\n|_. A |_. B "
                              "|\n| 1 | 2 |\n\n!pic.png!\n"),
               true);
        addRow("Wikitext", 3,
               QStringLiteral("= Heading =\n\nSome ''emphasis'' and '''strong'''.\n\n* one\n* "
                              "two\n\n[https://example.org/ link]\n\n{|\n! A !! B\n|-\n| 1 || "
                              "2\n|}\n\n[[File:pic.png]]\n"),
               true);
        addRow("BBCode", 4,
               QStringLiteral("[i]emphasis[/i] and [b]strong[/b]\n[list][*]one[*]two[/"
                              "list]\n[url=https://example.org/]link[/url]\n[img]pic.png[/"
                              "img]\n"),
               false);
        addRow("Smark", 5, markdown, true);
        addRow("HTML", 6,
               QStringLiteral("<h1>Heading</h1><p>Some <em>emphasis</em> and "
                              "<strong>strong</strong>.</p><ul><li>one</li><li>two</li></"
                              "ul><p><a href=\"https://example.org/\">link</a></p><table><tr><"
                              "th>A</th><th>B</th></tr><tr><td>1</td><td>2</td></tr></"
                              "table><p><img src=\"pic.png\" alt=\"pic\"></p>"),
               true);
        addRow("MultiMarkdown", 7, markdown, true);
    }

    void everyLanguagePreviewsWithAttachmentImages()
    {
        QFETCH(int, language);
        QFETCH(QString, text);
        QFETCH(bool, hasHeadingsAndTables);
        UserDefaults::standard().setInteger(QStringLiteral("TypographyUseMarkupLanguage"),
                                            language);
        seedStyles();
        const QString entry = makeEntry(QStringLiteral("Tag 1 – Café"));
        QVERIFY(!entry.isEmpty());

        PreviewController controller;
        controller.view()->resize(600, 400);
        QSignalSpy loads(controller.view(), &QWebEngineView::loadFinished);
        controller.renderText(text, entry);
        QVERIFY(controller.lastPageHtml().contains(
            QStringLiteral("Mein%20Tagebuch/Tag%201%20%E2%80%93%20Caf%C3%A9/\">")));
        QVERIFY(waitForLoad(loads));

        const QVariantMap found =
            QJsonDocument::fromJson(
                evaluate(controller.view(),
                         QStringLiteral(
                             "JSON.stringify({h: !!document.querySelector('h1,h2'),"
                             "em: !!document.querySelector('em,i'),"
                             "strong: !!document.querySelector('strong,b'),"
                             "li: document.querySelectorAll('li').length,"
                             "a: !!document.querySelector('a[href=\"https://example.org/\"]'),"
                             "table: !!document.querySelector('table td'),"
                             "img: document.images.length ? document.images[0].naturalWidth : -1,"
                             "styled: getComputedStyle(document.body).maxWidth})"))
                    .toString()
                    .toUtf8())
                .toVariant()
                .toMap();
        QVERIFY2(!found.isEmpty(), qPrintable(controller.lastPageHtml()));
        QVERIFY2(found.value("em").toBool(), qPrintable(controller.lastPageHtml()));
        QVERIFY(found.value("strong").toBool());
        QCOMPARE(found.value("li").toInt(), 2);
        QVERIFY(found.value("a").toBool());
        QCOMPARE(found.value("img").toInt(), 40);
        // The chosen style (Standard) reached the page.
        QCOMPARE(found.value("styled").toString(), QStringLiteral("690px"));
        if (hasHeadingsAndTables) {
            QVERIFY(found.value("h").toBool());
            QVERIFY2(found.value("table").toBool(), qPrintable(controller.lastPageHtml()));
        }
    }

    void clickedLinksOpenOutsideAndScriptsNeverRun()
    {
        LinkCatcher catcher;
        QDesktopServices::setUrlHandler(QStringLiteral("https"), &catcher, "openUrl");
        PreviewController controller;
        controller.setConverter([](int, const QString &text) { return text; });
        PreviewView *view = controller.view();
        view->resize(400, 300);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view));
        QSignalSpy loads(view, &QWebEngineView::loadFinished);
        controller.renderText(
            QStringLiteral("<script>document.title = 'ran'; document.body.dataset.ran = 1;"
                           "</script><a id=\"go\" href=\"https://example.org/away\" "
                           "style=\"display:block;position:fixed;left:0;top:0;right:0;bottom:0\""
                           ">away</a>"),
            makeEntry(QStringLiteral("Links")));
        QVERIFY(waitForLoad(loads));
        QVERIFY(view->title() != QStringLiteral("ran"));
        QCOMPARE(evaluate(view, QStringLiteral("document.body.dataset.ran === undefined")),
                 QVariant(true));

        QSignalSpy opened(view->previewPage(), &PreviewWebPage::externalLinkOpened);
        QWidget *surface = view->focusProxy();
        QVERIFY(surface);
        QTest::mouseClick(surface, Qt::LeftButton, {}, QPoint(200, 150));
        QTRY_COMPARE(catcher.urls.size(), 1);
        QCOMPARE(catcher.urls.first(), QUrl(QStringLiteral("https://example.org/away")));
        QCOMPARE(opened.size(), 1);
        // The entry stays on screen.
        QTest::qWait(300);
        QCOMPARE(evaluate(view, QStringLiteral("!!document.getElementById('go')")), QVariant(true));
        QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
    }

    void footnoteAnchorsScrollInsideThePage_data()
    {
        QTest::addColumn<bool>("large");
        addRow("in memory", false);
        // Loaded from a file, the page's address is not its base.
        addRow("through a file", true);
    }

    void footnoteAnchorsScrollInsideThePage()
    {
        QFETCH(bool, large);
        LinkCatcher catcher;
        QDesktopServices::setUrlHandler(QStringLiteral("file"), &catcher, "openUrl");
        PreviewController controller;
        controller.setConverter([](int, const QString &text) { return text; });
        PreviewView *view = controller.view();
        view->resize(400, 300);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view));
        QSignalSpy loads(view, &QWebEngineView::loadFinished);
        QString text = QStringLiteral("<a href=\"#fn1\" style=\"display:block;"
                                      "height:300px\">note</a><div style=\"height:3000px\">"
                                      "</div><p id=\"fn1\">The note</p>");
        if (large)
            text += QStringLiteral("<!--") + QString(2 * 1024 * 1024, QLatin1Char('x')) +
                    QStringLiteral("-->");
        controller.renderText(text, makeEntry(QStringLiteral("Notes")));
        QCOMPARE(view->lastPageFile().isEmpty(), !large);
        QVERIFY(waitForLoad(loads));
        QTest::mouseClick(view->focusProxy(), Qt::LeftButton, {}, QPoint(100, 100));
        QTRY_VERIFY(evaluate(view, QStringLiteral("window.scrollY")).toInt() > 1000);
        QVERIFY(catcher.urls.isEmpty());
        QCOMPARE(evaluate(view, QStringLiteral("!!document.getElementById('fn1')")),
                 QVariant(true));
        QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    }

    void largePagesGoThroughAFileAndKeepTheirBase()
    {
        PreviewController controller;
        controller.setConverter([](int, const QString &text) { return text; });
        PreviewView *view = controller.view();
        QSignalSpy loads(view, &QWebEngineView::loadFinished);
        QString text = QStringLiteral("<p><img src=\"pic.png\"></p>");
        const QString paragraph =
            QStringLiteral("<p>Ein Absatz über alles, was heute geschah.</p>\n");
        text += paragraph.repeated(3 * 1024 * 1024 / paragraph.toUtf8().size() + 1);
        text += QStringLiteral("<p id=\"end\">THE END</p>");
        controller.renderText(text, makeEntry(QStringLiteral("Long day")));
        const QString pageFile = view->lastPageFile();
        QVERIFY(!pageFile.isEmpty());
        QVERIFY(waitForLoad(loads));
        QCOMPARE(evaluate(view, QStringLiteral("document.getElementById('end').textContent")),
                 QVariant(QStringLiteral("THE END")));
        QCOMPARE(evaluate(view, QStringLiteral("document.images[0].naturalWidth")).toInt(), 40);

        // The next, small page loads from memory and the old file is cleaned up.
        controller.renderText(QStringLiteral("<p>short</p>"), QString());
        QVERIFY(view->lastPageFile().isEmpty());
        QVERIFY(waitForLoad(loads));
        QTRY_VERIFY(!QFile::exists(pageFile));
        QCOMPARE(evaluate(view, QStringLiteral("document.body.textContent")),
                 QVariant(QStringLiteral("short")));
    }

    void switchingStylesRestylesAtOnce()
    {
        seedStyles();
        QTextEdit editor;
        editor.setPlainText(QStringLiteral("# Title\n\nText"));
        const QString entry = makeEntry(QStringLiteral("Styled"));
        PreviewController controller;
        controller.setConverter([](int, const QString &text) {
            const QString title = text.section(QLatin1Char('\n'), 0, 0).mid(2);
            return QString(QStringLiteral("<h1>%1</h1>")).arg(title);
        });
        controller.setEditorTextProvider([&] { return editor.toPlainText(); });
        // The style reload takes the entry as the notebook + list item name.
        controller.setSelectedEntryPathProvider([&] { return entry; });
        PreviewView *view = controller.view();
        QSignalSpy loads(view, &QWebEngineView::loadFinished);
        QSignalSpy built(&controller, &PreviewController::pageBuilt);

        CSSStykeController panel;
        // Loading the panel stores the selection and rebuilds the preview.
        QCOMPARE(built.size(), 1);
        QVERIFY(waitForLoad(loads));
        const int light = bodyBrightness(view);
        QVERIFY2(light > 600, qPrintable(QString::number(light)));

        editor.setPlainText(QStringLiteral("# Changed since the last render"));
        const int night = panel.displayItems().indexOf(QStringLiteral("Standard Night.css"));
        QVERIFY(night >= 0);
        panel.cssStyleTable()->setCurrentRow(night);
        QCOMPARE(UserDefaults::standard().stringForKey(QStringLiteral("SelectedCSSStyle")),
                 QStringLiteral("Standard Night.css"));
        QCOMPARE(built.size(), 2);
        QVERIFY(
            controller.lastPageHtml().contains(QStringLiteral("Changed since the last render")));
        QVERIFY(controller.lastPageHtml().contains(
            QStringLiteral("href=\"file://") +
            QString::fromUtf8(QUrl::toPercentEncoding(m_notebook, "/")) +
            QStringLiteral("Styled/\">")));
        QVERIFY(waitForLoad(loads));
        const int dark = bodyBrightness(view);
        QVERIFY2(dark >= 0 && dark < 150, qPrintable(QString::number(dark)));
    }

    void styleReloadWithoutEntryUsesTheRootBase()
    {
        PreviewController controller;
        controller.setConverter([](int, const QString &text) { return text; });
        controller.setEditorTextProvider([] { return QStringLiteral("<p>loose text</p>"); });
        NotificationCenter::defaultCenter().post(Notifications::CSSStyleChangePerformReload);
        QVERIFY(controller.lastPageHtml().contains(QStringLiteral("<base href=\"file:///\">")));
        QVERIFY(controller.lastPageHtml().endsWith(QStringLiteral("<p>loose text</p></html>")));
        QCOMPARE(controller.lastBaseUrl(), QUrl(QStringLiteral("file:///")));
    }

    void segmentSwitchShowsAndRebuildsThePreview()
    {
        QStackedWidget stack;
        auto *editor = new QTextEdit(&stack);
        stack.addWidget(editor);
        QString selected;
        PreviewController controller;
        int conversions = 0;
        controller.setConverter([&](int, const QString &text) {
            ++conversions;
            return text;
        });
        controller.setEditorTextProvider([&] { return editor->toPlainText(); });
        controller.setSelectedEntryPathProvider([&] { return selected; });
        controller.setContentStack(&stack, editor);
        QCOMPARE(stack.count(), 2);
        QVERIFY(!controller.isShowingPreview());

        // No entry selected: the view switches but nothing is rebuilt.
        controller.contentViewSegmentChanged(1);
        QVERIFY(controller.isShowingPreview());
        QCOMPARE(conversions, 0);
        controller.contentViewSegmentChanged(0);
        QCOMPARE(stack.currentWidget(), editor);

        selected = makeEntry(QStringLiteral("Switch"));
        editor->setPlainText(QStringLiteral("<p>unsaved words</p>"));
        controller.contentViewSegmentChanged(2);
        QVERIFY(controller.isShowingPreview());
        QCOMPARE(conversions, 1);
        QVERIFY(controller.lastPageHtml().contains(QStringLiteral("<p>unsaved words</p>")));
        controller.contentViewSegmentChanged(0);
        QCOMPARE(conversions, 1);
        QVERIFY(!controller.isShowingPreview());
    }

    void viewIsLabelledForAssistiveTechnology()
    {
        PreviewView view;
        QVERIFY(!view.accessibleName().isEmpty());
        QVERIFY(view.accessibleName() != QStringLiteral("PREVIEW_ACCESSIBLE_NAME"));
        QVERIFY(!view.toolTip().isEmpty());
    }
};

VELLOX_TEST_MAIN(TestPreview)
#include "tst_preview.moc"
