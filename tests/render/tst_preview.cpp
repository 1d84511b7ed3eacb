#include "core/AppPaths.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "render/MarkupLanguage.h"
#include "render/PreviewConversionQueue.h"
#include "render/StyleFolderSeeder.h"
#include "render/widgets/CSSStykeController.h"
#include "render/widgets/PreviewController.h"
#include "render/widgets/PreviewHost.h"
#include "render/widgets/PreviewView.h"
#include "render/widgets/PreviewWebPage.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QListWidget>
#include <QMutex>
#include <QSemaphore>
#include <QStackedWidget>
#include <QTextEdit>
#include <QWebEngineScript>
#include <QtTest>

#include <memory>

// Receives the links the preview hands to the desktop.
class LinkCatcher : public QObject
{
    Q_OBJECT
public:
    QList<QUrl> urls;
public Q_SLOTS:
    void openUrl(const QUrl &url) { urls << url; }
};

// A converter that hands the text back and remembers every text it was given. It runs on the
// preview's conversion thread; the text holdBack waits there until the gate is released.
struct RecordingConverter
{
    QMutex mutex;
    QStringList seen;
    QString holdBack;
    QSemaphore gate;

    PreviewController::Converter function()
    {
        return [this](int, const QString &text) {
            bool hold = false;
            {
                QMutexLocker lock(&mutex);
                seen << text;
                hold = !holdBack.isEmpty() && text == holdBack;
            }
            // Bounded, so a failing test ends instead of hanging the thread.
            if (hold)
                gate.tryAcquire(1, 20000);
            return text;
        };
    }
    QStringList texts()
    {
        QMutexLocker lock(&mutex);
        return seen;
    }
};

class TestPreview : public QObject
{
    Q_OBJECT
private:
    QString m_notebook;
    std::unique_ptr<UserDefaults> m_defaults;

    static QVariant evaluate(PreviewController &controller, const QString &script)
    {
        QVariant result;
        bool done = false;
        controller.view()->webView()->page()->runJavaScript(
            script, QWebEngineScript::ApplicationWorld, [&](const QVariant &value) {
                result = value;
                done = true;
            });
        if (!QTest::qWaitFor([&] { return done; }, 10000))
            return QVariant();
        return result;
    }

    static bool waitForPage(QSignalSpy &shown)
    {
        if (shown.isEmpty() && !shown.wait(30000))
            return false;
        return shown.takeFirst().value(0).toBool();
    }

    static void showAlone(PreviewController &controller)
    {
        controller.view()->resize(600, 400);
        controller.view()->show();
        QVERIFY(QTest::qWaitForWindowExposed(controller.view()));
    }

    // A notebook folder with an entry whose attachment folder holds a 40x30 picture.
    QString makeEntry(const QString &title)
    {
        const QString entry = m_notebook + title + QStringLiteral(".txt");
        writeBytes(entry, QByteArray());
        const QString attachments = m_notebook + title;
        QDir().mkpath(attachments);
        QImage picture(40, 30, QImage::Format_RGB32);
        picture.fill(Qt::red);
        picture.save(attachments + QStringLiteral("/pic.png"));
        return entry;
    }

    // Mean luminance (0..255) of the middle of what the view shows on screen.
    static double shownLuminance(PreviewController &controller)
    {
        QWidget *view = controller.view()->webView();
        const QImage image = view->grab(view->rect().adjusted(20, 20, -20, -20)).toImage();
        double sum = 0;
        for (int y = 0; y < image.height(); y += 4)
            for (int x = 0; x < image.width(); x += 4)
                sum += qGray(image.pixel(x, y));
        return sum / ((image.height() + 3) / 4 * ((image.width() + 3) / 4));
    }

private Q_SLOTS:
    void init()
    {
        TestHome::instance()->reset();
        m_notebook = TestHome::instance()->path() + QStringLiteral("/home/Mein Tagebuch/");
        QDir().mkpath(m_notebook);
        m_defaults = std::make_unique<UserDefaults>(TestHome::instance()->path() +
                                                    QStringLiteral("/home/preview.conf"));
        m_defaults->registerDefaults(UserDefaults::defaultsTable());
        QVERIFY(StyleFolderSeeder::seed(AppPaths::cssStyleFolder(),
                                        QStringLiteral(VELLOX_SOURCE_RESOURCES "/styles")));
    }

    void cleanup() { m_defaults.reset(); }

    // The window starts with the editor in front: the preview must cost nothing until shown.
    void hiddenPreviewWaitsAndShowsTheNewestTextWhenShown()
    {
        QStackedWidget stack;
        auto *editor = new QTextEdit(&stack);
        stack.addWidget(editor);
        PreviewController controller(*m_defaults);
        RecordingConverter converter;
        controller.setConverter(converter.function());
        controller.setContentStack(&stack, editor);
        stack.resize(600, 400);
        stack.show();
        QVERIFY(QTest::qWaitForWindowExposed(&stack));
        QSignalSpy built(&controller, &PreviewController::pageBuilt);
        QSignalSpy shown(&controller, &PreviewController::pageShown);
        QVERIFY(!controller.view()->accessibleName().isEmpty());
        QVERIFY(!controller.view()->toolTip().isEmpty());

        const QString entry = makeEntry(QStringLiteral("Hidden"));
        controller.renderText(QStringLiteral("<p id=\"t\">first</p>"), entry);
        controller.renderText(QStringLiteral("<p id=\"t\">second</p>"), entry);
        controller.reloadPreviewWithNewCSSStyle();
        controller.renderText(QStringLiteral("<p id=\"t\">third</p>"), entry);
        QVERIFY(!built.wait(300));
        QVERIFY(converter.texts().isEmpty());
        QVERIFY(controller.isPending());
        QVERIFY(stack.findChildren<QWebEngineView *>().isEmpty());

        // No entry is selected, so the switch itself rebuilds nothing: what shows is the
        // newest text the preview was given.
        controller.contentViewSegmentChanged(1);
        QVERIFY(built.wait());
        QCOMPARE(converter.texts(), QStringList{QStringLiteral("<p id=\"t\">third</p>")});
        QCOMPARE(stack.findChildren<QWebEngineView *>().size(), 1);
        QVERIFY(waitForPage(shown));
        QCOMPARE(evaluate(controller, QStringLiteral("document.getElementById('t').textContent")),
                 QVariant(QStringLiteral("third")));
        // Relative links resolve in the entry's attachment folder.
        QCOMPARE(controller.lastBaseUrl(),
                 QUrl::fromLocalFile(m_notebook + QStringLiteral("Hidden/")));

        // Hidden again: texts wait again, and the view stays for the next showing.
        controller.contentViewSegmentChanged(0);
        controller.renderText(QStringLiteral("<p id=\"t\">fourth</p>"), entry);
        QVERIFY(!built.wait(300));
        QCOMPARE(converter.texts().size(), 1);
        controller.contentViewSegmentChanged(1);
        QVERIFY(built.wait());
        QVERIFY(waitForPage(shown));
        QCOMPARE(evaluate(controller, QStringLiteral("document.getElementById('t').textContent")),
                 QVariant(QStringLiteral("fourth")));
        QCOMPARE(stack.findChildren<QWebEngineView *>().size(), 1);
    }

    // A slow conversion never holds the window, and what it yields after a newer text was
    // asked for is thrown away; texts asked for in between are skipped.
    void newestTextWinsOverOnesStillConverting()
    {
        PreviewController controller(*m_defaults);
        RecordingConverter converter;
        converter.holdBack = QStringLiteral("<p>slow</p>");
        controller.setConverter(converter.function());
        showAlone(controller);
        QSignalSpy built(&controller, &PreviewController::pageBuilt);

        controller.renderText(QStringLiteral("<p>slow</p>"), QString());
        QTRY_COMPARE(converter.texts().size(), 1);
        // The window answers while the converter is busy.
        controller.renderText(QStringLiteral("<p>skipped</p>"), QString());
        controller.renderText(QStringLiteral("<p>newest</p>"), QString());
        QCoreApplication::processEvents();
        QVERIFY(built.isEmpty());
        converter.gate.release();

        QVERIFY(built.wait());
        QVERIFY(!built.wait(300));
        QCOMPARE(built.size(), 1);
        QVERIFY(built.first().value(0).toString().endsWith(QStringLiteral("<p>newest</p></html>")));
        QCOMPARE(converter.texts(),
                 QStringList({QStringLiteral("<p>slow</p>"), QStringLiteral("<p>newest</p>")}));
        QVERIFY(!controller.isPending());

        // An empty page asked for while converting wins the same way.
        {
            QMutexLocker lock(&converter.mutex);
            converter.holdBack = QStringLiteral("<p>late</p>");
        }
        controller.renderText(QStringLiteral("<p>late</p>"), QString());
        QTRY_COMPARE(converter.texts().size(), 3);
        controller.blank();
        QCOMPARE(built.size(), 2);
        converter.gate.release();
        QVERIFY(!built.wait(300));
        QVERIFY(!controller.lastPageHtml().contains(QStringLiteral("late")));
    }

    // The real converter of the chosen language, through the conversion thread, into a page
    // whose relative images come from the entry's attachment folder.
    void chosenLanguagePreviewsWithAttachmentImages()
    {
        m_defaults->setValue(Settings::TypographyUseMarkupLanguage, 4);
        const QString text =
            QStringLiteral("[i]emphasis[/i] and [b]strong[/b]\n[list][*]one[*]two[/list]\n"
                           "[url=https://example.org/]link[/url]\n[img]pic.png[/img]\n");
        const QString entry = makeEntry(QStringLiteral("Tag 1 – Café"));

        PreviewController controller(*m_defaults);
        showAlone(controller);
        QSignalSpy shown(&controller, &PreviewController::pageShown);
        controller.renderText(text, entry);
        QVERIFY(waitForPage(shown));
        QVERIFY(controller.lastPageHtml().contains(
            QStringLiteral("Mein%20Tagebuch/Tag%201%20%E2%80%93%20Caf%C3%A9/\">")));

        QCOMPARE(evaluate(controller, QStringLiteral("document.querySelectorAll('em, strong, "
                                                     "li, a[href=\"https://example.org/\"]')"
                                                     ".length")),
                 QVariant(5));
        QCOMPARE(evaluate(controller, QStringLiteral("document.images[0].naturalWidth")).toInt(),
                 40);
    }

    void clickedLinksOpenOutsideAndScriptsNeverRun()
    {
        LinkCatcher catcher;
        QDesktopServices::setUrlHandler(QStringLiteral("https"), &catcher, "openUrl");
        PreviewController controller(*m_defaults);
        controller.setConverter([](int, const QString &text) { return text; });
        showAlone(controller);
        QSignalSpy shown(&controller, &PreviewController::pageShown);
        controller.renderText(
            QStringLiteral("<script>document.title = 'ran'; document.body.dataset.ran = 1;"
                           "</script><a id=\"go\" href=\"https://example.org/away\" "
                           "style=\"display:block;position:fixed;left:0;top:0;right:0;bottom:0\""
                           ">away</a>"),
            makeEntry(QStringLiteral("Links")));
        QVERIFY(waitForPage(shown));
        PreviewView *view = controller.view()->webView();
        QVERIFY(view->title() != QStringLiteral("ran"));
        QCOMPARE(evaluate(controller, QStringLiteral("document.body.dataset.ran === undefined")),
                 QVariant(true));

        QSignalSpy opened(view->previewPage(), &PreviewWebPage::externalLinkOpened);
        QVERIFY(view->focusProxy());
        QTest::mouseClick(view->focusProxy(), Qt::LeftButton, {}, QPoint(200, 150));
        QTRY_COMPARE(catcher.urls.size(), 1);
        QCOMPARE(catcher.urls.first(), QUrl(QStringLiteral("https://example.org/away")));
        QCOMPARE(opened.size(), 1);
        // The entry stays on screen.
        QCOMPARE(evaluate(controller, QStringLiteral("!!document.getElementById('go')")),
                 QVariant(true));
        QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
    }

    // The engine refuses in-memory pages above 2 MB; such pages (here one that cannot be
    // shown in steps, being one element) come from a private file, keep the entry's base,
    // and their anchors still scroll inside the page.
    void pagesOverTwoMegabytesShowFromAFile()
    {
        LinkCatcher catcher;
        QDesktopServices::setUrlHandler(QStringLiteral("file"), &catcher, "openUrl");
        PreviewController controller(*m_defaults);
        controller.setConverter([](int, const QString &text) { return text; });
        showAlone(controller);
        QSignalSpy shown(&controller, &PreviewController::pageShown);
        QString text = QStringLiteral("<div><a href=\"#end\" style=\"display:block;"
                                      "height:300px\">jump</a><p><img src=\"pic.png\"></p>");
        const QString paragraph =
            QStringLiteral("<p>Ein Absatz über alles, was heute geschah.</p>\n");
        text += paragraph.repeated(3 * 1024 * 1024 / paragraph.toUtf8().size() + 1);
        text += QStringLiteral("<p id=\"end\">THE END</p></div>");
        controller.renderText(text, makeEntry(QStringLiteral("Long day")));
        QVERIFY(waitForPage(shown));
        PreviewView *view = controller.view()->webView();
        const QString pageFile = view->lastPageFile();
        QVERIFY(QFileInfo(pageFile).size() > 2 * 1024 * 1024);
        QCOMPARE(evaluate(controller, QStringLiteral("document.getElementById('end').textContent")),
                 QVariant(QStringLiteral("THE END")));
        QCOMPARE(evaluate(controller, QStringLiteral("document.images[0].naturalWidth")).toInt(),
                 40);
        QTest::mouseClick(view->focusProxy(), Qt::LeftButton, {}, QPoint(100, 100));
        QTRY_VERIFY(evaluate(controller, QStringLiteral("window.scrollY")).toInt() > 1000);
        QVERIFY(catcher.urls.isEmpty());
        QDesktopServices::unsetUrlHandler(QStringLiteral("file"));

        // The next, small page loads from memory and the old file is cleaned up.
        shown.clear();
        controller.renderText(QStringLiteral("<p>short</p>"), QString());
        QVERIFY(waitForPage(shown));
        QVERIFY(view->lastPageFile().isEmpty());
        QTRY_VERIFY(!QFile::exists(pageFile));
        QCOMPARE(evaluate(controller, QStringLiteral("document.body.textContent")),
                 QVariant(QStringLiteral("short")));
    }

    // A long page shows its top at once and gets the rest appended: in the end the body is
    // exactly the entry's, in order, anchors into the appended part work, and a newer page
    // stops the appending of the older one.
    void longPagesShowTheirTopFirstAndTheRestAfter()
    {
        PreviewController controller(*m_defaults);
        controller.setConverter([](int, const QString &text) { return text; });
        showAlone(controller);
        PreviewView *view = nullptr;
        QSignalSpy shown(&controller, &PreviewController::pageShown);
        QString text = QStringLiteral(
            "<p><a href=\"#end\" style=\"display:block;height:300px\">jump</a></p>\n");
        const int blocks = 6000;
        for (int i = 0; i < blocks; ++i) {
            text += i % 3 == 0
                        ? QStringLiteral("<ul>\n<li>b%1 <em>x</em></li>\n</ul>\n").arg(i)
                        : QStringLiteral("<p>b%1 <img src=\"pic.png\" /> a &lt; b</p>\n").arg(i);
        }
        text += QStringLiteral("<p id=\"end\">THE END</p>\n");
        controller.renderText(text, makeEntry(QStringLiteral("Long list")));
        QVERIFY(waitForPage(shown));
        view = controller.view()->webView();
        QSignalSpy completed(view, &PreviewView::pageCompleted);
        QVERIFY(view->isAppending() || !completed.isEmpty());
        QTRY_VERIFY_WITH_TIMEOUT(!view->isAppending(), 60000);
        const QString check =
            QStringLiteral(
                "(function(){var c=document.body.children;if(c.length!==%1)return "
                "'count '+c.length;"
                "for(var i=1;i<=%2;i++){if(c[i].textContent.trim().indexOf('b'+(i-1)+' ')!==0)"
                "return 'block '+i+': '+c[i].textContent;}return c[%1-1].id;})()")
                .arg(blocks + 2)
                .arg(blocks);
        QCOMPARE(evaluate(controller, check).toString(), QStringLiteral("end"));
        QTest::mouseClick(view->focusProxy(), Qt::LeftButton, {}, QPoint(100, 100));
        QTRY_VERIFY(evaluate(controller, QStringLiteral("window.scrollY")).toInt() > 1000);

        shown.clear();
        controller.renderText(text + QStringLiteral("<p>more</p>"), QString());
        controller.renderText(QStringLiteral("<p>short</p>"), QString());
        QTRY_VERIFY_WITH_TIMEOUT(!controller.isPending() && !view->isAppending(), 60000);
        QTest::qWait(500);
        QCOMPARE(evaluate(controller, QStringLiteral("document.body.textContent")),
                 QVariant(QStringLiteral("short")));
    }

    // A long Markdown entry's first screens are converted and shown on their own; the whole
    // conversion starts with them and completes the same page. A text whose blocks refer to
    // each other (a link defined at the end) is converted whole.
    void longMarkdownShowsItsTopBeforeTheRestIsConverted()
    {
        QString text;
        const int days = 2000;
        for (int i = 0; i < days; ++i)
            text += QStringLiteral("## Day %1\n\nWe walked *%1* times round the **harbour**.\n\n"
                                   "- one\n- two\n\n")
                        .arg(i);
        PreviewConversionQueue queue;
        QSignalSpy head(&queue, &PreviewConversionQueue::headConverted);
        QSignalSpy whole(&queue, &PreviewConversionQueue::converted);
        queue.request(MarkupLanguage::Markdown, text);
        QVERIFY(whole.wait(60000));
        QCOMPARE(head.count(), 1);
        const QString top = head.at(0).at(1).toString();
        const QString all = whole.at(0).at(1).toString();
        QVERIFY(top.contains(QStringLiteral("<h2>Day 0</h2>")));
        QVERIFY(top.size() < all.size() / 4);
        QVERIFY(all.startsWith(top));
        QCOMPARE(all.count(QStringLiteral("<h2>")), days);

        head.clear();
        whole.clear();
        queue.request(MarkupLanguage::Markdown,
                      QStringLiteral("[harbour][h]\n\n") + text + QStringLiteral("[h]: /x\n"));
        QVERIFY(whole.wait(60000));
        QCOMPARE(head.count(), 0);
        QVERIFY(whole.at(0).at(1).toString().contains(QStringLiteral("<a href=\"/x\">")));

        PreviewController controller(*m_defaults);
        showAlone(controller);
        controller.renderText(text, makeEntry(QStringLiteral("Long days")));
        QTRY_VERIFY_WITH_TIMEOUT(!controller.isPending() && controller.view()->webView() &&
                                     !controller.view()->webView()->isAppending(),
                                 60000);
        QCOMPARE(evaluate(controller, QStringLiteral("document.querySelectorAll('h2').length")),
                 QVariant(days));
        QCOMPARE(
            evaluate(
                controller,
                QStringLiteral("document.querySelectorAll('h2')[%1].textContent").arg(days - 1)),
            QVariant(QStringLiteral("Day %1").arg(days - 1)));
    }

    // Choosing the night style in the panel turns what is on screen dark, with the editor's
    // current text.
    void choosingANightStyleDarkensTheShownPage()
    {
        QTextEdit editor;
        editor.setPlainText(QStringLiteral("<h1>Title</h1><p>Text</p>"));
        const QString entry = makeEntry(QStringLiteral("Styled"));
        PreviewController controller(*m_defaults);
        controller.setConverter([](int, const QString &text) { return text; });
        controller.setEditorTextProvider([&] { return editor.toPlainText(); });
        controller.setSelectedEntryPathProvider([&] { return entry; });
        showAlone(controller);
        QSignalSpy shown(&controller, &PreviewController::pageShown);

        // Loading the panel stores the selection and rebuilds the preview.
        CSSStykeController panel(*m_defaults);
        QVERIFY(waitForPage(shown));
        QTRY_VERIFY(shownLuminance(controller) > 180);

        editor.setPlainText(QStringLiteral("<h1>Changed since the last page</h1>"));
        panel.cssStyleTable()->setCurrentRow(
            panel.displayItems().indexOf(QStringLiteral("Standard Night.css")));
        QCOMPARE(m_defaults->value(Settings::SelectedCSSStyle),
                 QStringLiteral("Standard Night.css"));
        QVERIFY(waitForPage(shown));
        QVERIFY(controller.lastPageHtml().contains(QStringLiteral("Changed since the last page")));
        QTRY_VERIFY(shownLuminance(controller) < 80);
    }

    void styleReloadWithoutEntryUsesTheRootBase()
    {
        PreviewController controller(*m_defaults);
        controller.setConverter([](int, const QString &text) { return text; });
        controller.setEditorTextProvider([] { return QStringLiteral("<p>loose text</p>"); });
        showAlone(controller);
        QSignalSpy built(&controller, &PreviewController::pageBuilt);
        NotificationCenter::defaultCenter().post(Notifications::CSSStyleChangePerformReload);
        QVERIFY(built.wait());
        QVERIFY(controller.lastPageHtml().contains(QStringLiteral("<base href=\"file:///\">")));
        QVERIFY(controller.lastPageHtml().endsWith(QStringLiteral("<p>loose text</p></html>")));
        QCOMPARE(controller.lastBaseUrl(), QUrl(QStringLiteral("file:///")));
    }
};

VELLOX_TEST_MAIN(TestPreview)
#include "tst_preview.moc"
