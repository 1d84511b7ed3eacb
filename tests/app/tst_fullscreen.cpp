#include "app/widgets/AppController.h"
#include "app/widgets/FullScreenController.h"
#include "app/widgets/FullScreenLayout.h"
#include "app/widgets/MainWindow.h"
#include "app/widgets/Startup.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "editor/widgets/Vellox_EnhancedTextView.h"
#include "library/NotebookRegistry.h"
#include "support/TestHome.h"
#include "widgets/MessageBar.h"

#include <QListView>
#include <QScreen>
#include <QStackedWidget>
#include <QtTest>

// Full screen and the distraction-free window around a real main window and editor.
class TestFullScreen : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void layoutOfTheTextArea()
    {
        // A 1440 by 900 screen with the default 50 percent.
        QCOMPARE(FullScreenLayout::nativeTextRect({1440, 900}, 50, 50),
                 QRectF(272.5, 208.5, 541, 417));
        QCOMPARE(FullScreenLayout::ownWindowTextRect({1440, 900}, 50, 50),
                 QRectF(360, 225, 720, 450));
        QCOMPARE(FullScreenLayout::ownWindowTextRect({1000, 800}, 80, 25),
                 QRectF(100, 300, 800, 200));
    }

    void writingWithoutDistractionComesBackToTheEditor()
    {
        UserDefaults defaults(TestHome::instance()->path() + "/fs.conf");
        defaults.registerDefaults(UserDefaults::defaultsTable());
        MainWindow window;
        auto *editor = new Vellox_EnhancedTextView(defaults);
        window.setEditor(editor);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        editor->setString("Dear diary,\n");
        editor->setEditable(true);
        editor->setSelectedRange(12, 0);
        FullScreenController controller(&window, editor, defaults);

        controller.distractionFreeModus();
        QVERIFY(controller.distractionFreeActive());
        QCOMPARE(editor->window(), controller.borderlessWindow());
        const QSize screen = controller.borderlessWindow()->screen()->geometry().size();
        QCOMPARE(QRectF(editor->geometry()),
                 FullScreenLayout::ownWindowTextRect(QSizeF(screen), 50, 50).toRect());
        QTest::keyClicks(editor, "today");

        // A change of the preferences moves the text at once.
        defaults.setValue(Settings::FullscreenTextviewWidth, 80);
        NotificationCenter::defaultCenter().post(Notifications::FullscreenAttributesChanged,
                                                 nullptr);
        QCOMPARE(editor->width(), qRound(screen.width() * 0.8));

        QTest::keyClick(editor, Qt::Key_Escape);
        QVERIFY(!controller.distractionFreeActive());
        QCOMPARE(editor->window(), &window);
        QCOMPARE(window.contentStack()->currentWidget(), editor);
        QCOMPARE(editor->string(), QString("Dear diary,\ntoday"));
        QCOMPARE(editor->selectedRange(), (QPair<int, int>(17, 0)));
    }

    void viewMenuItemsReachTheController()
    {
        QTemporaryDir notebook;
        UserDefaults &defaults = UserDefaults::standard();
        NotebookRegistry(defaults).store(
            {QVariantMap{{"DiaryName", "N"}, {"DiaryDocumentPath", notebook.path()}}});
        Startup startup(defaults);
        QVERIFY(startup.launch());
        MainWindow *window = startup.controller()->window();
        auto *controller = startup.controller()->findChild<FullScreenController *>();
        QVERIFY(controller);
        window->action("actionDistractionFree")->trigger();
        QVERIFY(controller->distractionFreeActive());
        window->action("actionDistractionFree")->trigger();
        QVERIFY(!controller->distractionFreeActive());
        window->action("actionToggleFullScreen")->trigger();
        QVERIFY(controller->nativeActive());
        window->action("actionToggleFullScreen")->trigger();
        QVERIFY(!controller->nativeActive());
    }

    void fullScreenShowsOnlyTheTextAndRestoresTheWindow()
    {
        UserDefaults defaults(TestHome::instance()->path() + "/fs2.conf");
        defaults.registerDefaults(UserDefaults::defaultsTable());
        defaults.setValue(Settings::FullscreenBackgroundColor, QColor("#ff203040"));
        MainWindow window;
        auto *editor = new Vellox_EnhancedTextView(defaults);
        window.setEditor(editor);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QWidget *column = window.contentStack()->parentWidget();
        QWidget *central = window.centralWidget();
        FullScreenController controller(&window, editor, defaults);

        controller.toggleFullscreen();
        QVERIFY(controller.nativeActive());
        QVERIFY(window.windowState() & Qt::WindowFullScreen);
        QVERIFY(!window.entryList()->isVisibleTo(&window));
        QCOMPARE(controller.stage()->color(), QColor("#203040"));
        const QSize screen = window.screen()->geometry().size();
        QCOMPARE(controller.textRect(), FullScreenLayout::nativeTextRect(QSizeF(screen), 50, 50));
        QVERIFY(window.messageBar()->parentWidget() == window.contentStack()->parentWidget());

        controller.toggleFullscreen();
        QVERIFY(!controller.nativeActive());
        QVERIFY(!(window.windowState() & Qt::WindowFullScreen));
        QCOMPARE(window.centralWidget(), central);
        QCOMPARE(window.contentStack()->parentWidget(), column);
        QCOMPARE(window.messageBar()->parentWidget(), column);
        QVERIFY(window.entryList()->isVisibleTo(&window));
    }
};

VELLOX_TEST_MAIN(TestFullScreen)
#include "tst_fullscreen.moc"
