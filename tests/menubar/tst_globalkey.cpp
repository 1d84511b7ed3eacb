// The global key and the tray icon against a real X server: a private Xvfb, keys sent with
// xdotool through XTEST, and trayer as the tray.
#include "core/UserDefaults.h"
#include "menubar/GlobalKeyStatus.h"
#include "menubar/GlobalShortcut.h"
#include "menubar/X11HotKey.h"
#include "menubar/widgets/CapturePanel.h"
#include "menubar/widgets/MenubarController.h"
#include "menubar/widgets/StatusBarItem.h"
#include "support/TestHome.h"

#include <QLineEdit>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QSystemTrayIcon>
#include <QTemporaryDir>

#include <xcb/xcb.h>

namespace {
bool xdotool(const QStringList &arguments)
{
    return QProcess::execute(QStringLiteral("xdotool"), arguments) == 0;
}

void storeShortcut(UserDefaults &defaults, int qtKey, Qt::KeyboardModifiers modifiers)
{
    const int keyCode = X11HotKey::keyCodeForQtKey(qtKey);
    QVERIFY(keyCode > 0);
    ShortcutSettings::saveTheShortCut(defaults,
                                      GlobalShortcut::fromKey(qtKey, modifiers, keyCode).toValue());
}
} // namespace

class TestGlobalKey : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void releaseTogglesThePanelAndOldKeysStay();
    void combinationHeldElsewhereIsReported();
    void trayIconClickOpensThePanelBelowIt();

private:
    // Sends the keys and waits for the panel to open or close.
    void pressAndExpect(MenubarController &controller, const QString &keys, bool open);

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<UserDefaults> m_defaults;
};

void TestGlobalKey::initTestCase()
{
    if (!X11HotKey::isAvailable())
        QSKIP("no X server (Xvfb is missing)");
    if (QStandardPaths::findExecutable(QStringLiteral("xdotool")).isEmpty())
        QSKIP("xdotool is missing");
}

void TestGlobalKey::init()
{
    m_defaults.reset();
    m_dir = std::make_unique<QTemporaryDir>();
    m_defaults = std::make_unique<UserDefaults>(m_dir->filePath(QStringLiteral("s.conf")));
    m_defaults->registerDefaults(UserDefaults::defaultsTable());
}

void TestGlobalKey::pressAndExpect(MenubarController &controller, const QString &keys, bool open)
{
    QSignalSpy changed(controller.panel(), &CapturePanel::openChanged);
    QVERIFY(xdotool({QStringLiteral("key"), keys}));
    QTRY_COMPARE_WITH_TIMEOUT(changed.size(), 1, 5000);
    QCOMPARE(changed.last().at(0).toBool(), open);
    QCOMPARE(controller.panel()->isOpen(), open);
}

void TestGlobalKey::releaseTogglesThePanelAndOldKeysStay()
{
    MenubarController controller(*m_defaults);
    controller.panel()->addPane(CapturePanel::SearchPaneId, QStringLiteral("Search"),
                                new QLineEdit);
    QCOMPARE(controller.hotKey()->registeredCount(), 0);

    storeShortcut(*m_defaults, Qt::Key_J, Qt::ControlModifier | Qt::AltModifier);
    QCOMPARE(controller.hotKey()->registeredCount(), 1);
    pressAndExpect(controller, QStringLiteral("ctrl+alt+j"), true);
    pressAndExpect(controller, QStringLiteral("ctrl+alt+j"), false);

    // A new combination joins the old one; both act until the application ends.
    storeShortcut(*m_defaults, Qt::Key_F8, Qt::ShiftModifier);
    QCOMPARE(controller.hotKey()->registeredCount(), 2);
    pressAndExpect(controller, QStringLiteral("shift+F8"), true);
    pressAndExpect(controller, QStringLiteral("ctrl+alt+j"), false);

    // Num Lock and Caps Lock on: the same combination still acts.
    QVERIFY(xdotool({QStringLiteral("key"), QStringLiteral("Num_Lock")}));
    QVERIFY(xdotool({QStringLiteral("key"), QStringLiteral("Caps_Lock")}));
    pressAndExpect(controller, QStringLiteral("ctrl+alt+j"), true);
    QVERIFY(xdotool({QStringLiteral("key"), QStringLiteral("Caps_Lock")}));
    pressAndExpect(controller, QStringLiteral("ctrl+alt+j"), false);
    QVERIFY(xdotool({QStringLiteral("key"), QStringLiteral("Num_Lock")}));

    // Clearing stores nothing and takes nothing away while running.
    ShortcutSettings::saveTheShortCut(*m_defaults, {});
    pressAndExpect(controller, QStringLiteral("ctrl+alt+j"), true);
    controller.panel()->closePanel();
}

void TestGlobalKey::combinationHeldElsewhereIsReported()
{
    // Another client grabs Ctrl+Alt+M on the root window first.
    xcb_connection_t *other = xcb_connect(nullptr, nullptr);
    QVERIFY(!xcb_connection_has_error(other));
    const int keyCode = X11HotKey::keyCodeForQtKey(Qt::Key_M);
    const quint16 mask = GlobalShortcut::x11Modifiers(Qt::ControlModifier | Qt::AltModifier);
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(other)).data;
    xcb_generic_error_t *error = xcb_request_check(
        other, xcb_grab_key_checked(other, 1, screen->root, mask, xcb_keycode_t(keyCode),
                                    XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    QVERIFY(!error);

    QSignalSpy reported(&GlobalKeyStatus::instance(), &GlobalKeyStatus::reported);
    MenubarController controller(*m_defaults);
    storeShortcut(*m_defaults, Qt::Key_M, Qt::ControlModifier | Qt::AltModifier);
    QCOMPARE(reported.size(), 1);
    QCOMPARE(reported.last().at(0).value<X11HotKey::Result>(), X11HotKey::Result::Taken);
    QVERIFY(GlobalKeyStatus::describe(X11HotKey::Result::Taken,
                                      QKeySequence(QStringLiteral("Ctrl+Alt+M")))
                .contains(
                    QKeySequence(QStringLiteral("Ctrl+Alt+M")).toString(QKeySequence::NativeText)));
    QCOMPARE(controller.hotKey()->registeredCount(), 0);
    xcb_disconnect(other);
}

void TestGlobalKey::trayIconClickOpensThePanelBelowIt()
{
    const QString trayer = QStandardPaths::findExecutable(QStringLiteral("trayer"));
    if (trayer.isEmpty())
        QSKIP("trayer is missing");
    QProcess tray;
    tray.start(trayer, {QStringLiteral("--edge"), QStringLiteral("top"), QStringLiteral("--align"),
                        QStringLiteral("right"), QStringLiteral("--height"), QStringLiteral("24")});
    QVERIFY(tray.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(QSystemTrayIcon::isSystemTrayAvailable(), 10000);

    MenubarController controller(*m_defaults);
    controller.panel()->addPane(CapturePanel::SearchPaneId, QStringLiteral("Search"),
                                new QLineEdit);
    controller.showItem();
    // Until the tray embeds it the icon sits at the origin.
    QTRY_VERIFY_WITH_TIMEOUT(controller.item()->trayIcon()->geometry().right() > 100, 10000);
    const QRect icon = controller.item()->trayIcon()->geometry();

    QSignalSpy changed(controller.panel(), &CapturePanel::openChanged);
    QVERIFY(xdotool({QStringLiteral("mousemove"), QString::number(icon.center().x()),
                     QString::number(icon.center().y()), QStringLiteral("click"),
                     QStringLiteral("1")}));
    QTRY_COMPARE_WITH_TIMEOUT(changed.size(), 1, 5000);
    QVERIFY(controller.panel()->isOpen());
    QVERIFY(controller.item()->clicked());
    const QRect panel = controller.panel()->frameGeometry();
    QVERIFY2(panel.top() >= icon.bottom(), "the panel hangs below the icon");
    QVERIFY(panel.left() <= icon.center().x() && panel.right() >= icon.center().x());

    QVERIFY(xdotool({QStringLiteral("click"), QStringLiteral("1")}));
    QTRY_COMPARE_WITH_TIMEOUT(changed.size(), 2, 5000);
    QVERIFY(!controller.panel()->isOpen());
    QVERIFY(!controller.item()->clicked());
    tray.terminate();
    tray.waitForFinished();
}

// Runs on its own X server so the grabs and the tray never meet a developer's desktop.
int main(int argc, char *argv[])
{
    TestHome home;
    QProcess server;
    const QString xvfb = QStandardPaths::findExecutable(QStringLiteral("Xvfb"));
    if (!xvfb.isEmpty()) {
        // -displayfd: the server picks a free display and writes its number once it listens.
        server.start(xvfb,
                     {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                      QStringLiteral("0"), QStringLiteral("1280x800x24"),
                      QStringLiteral("-nolisten"), QStringLiteral("tcp")});
        QByteArray display;
        while (server.waitForReadyRead(15000)) {
            display += server.readAllStandardOutput();
            if (display.contains('\n'))
                break;
        }
        if (!display.trimmed().isEmpty()) {
            qputenv("DISPLAY", ":" + display.trimmed());
            qputenv("QT_QPA_PLATFORM", "xcb");
        }
    }
    if (qgetenv("QT_QPA_PLATFORM") != "xcb")
        qputenv("QT_QPA_PLATFORM", "offscreen");
    int status = 0;
    {
        QApplication app(argc, argv);
        velloxInstallTranslations(&app);
        TestGlobalKey test;
        status = QTest::qExec(&test, argc, argv);
    }
    server.terminate();
    server.waitForFinished();
    return status;
}

#include "tst_globalkey.moc"
