// The capture panel, its placement and the global key's settings and recorder, offscreen.
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "menubar/PanelPlacement.h"
#include "menubar/widgets/CapturePanel.h"
#include "menubar/widgets/MenubarController.h"
#include "menubar/widgets/ShortcutRecorder.h"
#include "menubar/widgets/StatusBarItem.h"
#include "support/TestHome.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTabBar>
#include <QTemporaryDir>

class TestCapturePanel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void placementHangsUnderTheIconAndStaysOnScreen();
    void paneChoiceIsKeptAcrossPanels();
    void endOfCaptureClosesAndUnhighlights();
    void recorderRefusesBareKeys();

private:
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<UserDefaults> m_defaults;
};

void TestCapturePanel::init()
{
    m_defaults.reset();
    m_dir = std::make_unique<QTemporaryDir>();
    m_defaults = std::make_unique<UserDefaults>(m_dir->filePath(QStringLiteral("s.conf")));
    m_defaults->registerDefaults(UserDefaults::defaultsTable());
}

void TestCapturePanel::placementHangsUnderTheIconAndStaysOnScreen()
{
    const QRect screen(0, 0, 1000, 800);
    const QSize panel(400, 300);
    // Top tray: centred below the icon.
    QCOMPARE(PanelPlacement::topLeft(QRect(500, 0, 20, 20), {}, panel, screen), QPoint(310, 20));
    // Icon near the right edge: pushed back onto the screen.
    QCOMPARE(PanelPlacement::topLeft(QRect(980, 0, 20, 20), {}, panel, screen), QPoint(600, 20));
    // Bottom tray: the panel opens above the icon.
    QCOMPARE(PanelPlacement::topLeft(QRect(10, 780, 20, 20), {}, panel, screen), QPoint(0, 480));
    // Unknown icon: at the pointer, still inside a screen that does not start at 0.
    QCOMPARE(PanelPlacement::topLeft(QRect(), QPoint(1990, 5), panel, QRect(1000, 0, 1000, 800)),
             QPoint(1600, 6));
}

void TestCapturePanel::paneChoiceIsKeptAcrossPanels()
{
    {
        // Only the search pane: the switcher offers just that one.
        CapturePanel panel(*m_defaults);
        panel.addPane(CapturePanel::SearchPaneId, QStringLiteral("Search"), new QLineEdit);
        QCOMPARE(panel.paneSwitcher()->count(), 1);
        QCOMPARE(panel.currentPaneId(), CapturePanel::SearchPaneId);
        panel.toggleAttachedWindow(QRect(100, 0, 20, 20));
        QVERIFY(panel.isOpen());
        QVERIFY(!m_defaults->hasStoredValue(Settings::StatusBarPaneSelectionPref));
        panel.toggleAttachedWindow(QRect(100, 0, 20, 20));
        QVERIFY(!panel.isOpen());
        QCOMPARE(m_defaults->value(Settings::StatusBarPaneSelectionPref), true);
    }
    {
        // Search chosen before: a panel with both panes opens on search, whatever the order.
        CapturePanel panel(*m_defaults);
        panel.addPane(CapturePanel::NotePaneId, QStringLiteral("Note"), new QLineEdit);
        panel.addPane(CapturePanel::SearchPaneId, QStringLiteral("Search"), new QLineEdit);
        QCOMPARE(panel.paneIds(),
                 (QStringList{CapturePanel::NotePaneId, CapturePanel::SearchPaneId}));
        QCOMPARE(panel.currentPaneId(), CapturePanel::SearchPaneId);
        panel.toggleAttachedWindow(QRect());
        panel.paneSwitcher()->setCurrentIndex(0);
        panel.toggleAttachedWindow(QRect());
        QCOMPARE(m_defaults->value(Settings::StatusBarPaneSelectionPref), false);
    }
    CapturePanel panel(*m_defaults);
    panel.addPane(CapturePanel::SearchPaneId, QStringLiteral("Search"), new QLineEdit);
    panel.addPane(CapturePanel::NotePaneId, QStringLiteral("Note"), new QLineEdit);
    QCOMPARE(panel.currentPaneId(), CapturePanel::NotePaneId);
}

void TestCapturePanel::endOfCaptureClosesAndUnhighlights()
{
    MenubarController controller(*m_defaults);
    controller.panel()->addPane(CapturePanel::NotePaneId, QStringLiteral("Note"), new QLineEdit);
    controller.mouseDown();
    QVERIFY(controller.panel()->isOpen());
    QVERIFY(controller.item()->clicked());
    NotificationCenter::defaultCenter().post(Notifications::StatusBarAddNoteEndClear);
    QVERIFY(!controller.panel()->isOpen());
    QVERIFY(!controller.item()->clicked());
    // Nothing open: the end of a capture does not open the panel again.
    NotificationCenter::defaultCenter().post(Notifications::StatusBarAddNoteEndClear);
    QVERIFY(!controller.panel()->isOpen());
}

void TestCapturePanel::recorderRefusesBareKeys()
{
    ShortcutRecorder recorder;
    recorder.show();
    QSignalSpy changed(&recorder, &ShortcutRecorder::shortcutChanged);
    QSignalSpy refused(&recorder, &ShortcutRecorder::refused);
    QTest::keyClick(recorder.field(), Qt::Key_J);
    QTest::keyClick(recorder.field(), Qt::Key_J, Qt::ShiftModifier);
    QCOMPARE(refused.size(), 2);
    QCOMPARE(changed.size(), 0);

    QTest::keyClick(recorder.field(), Qt::Key_F7);
    QCOMPARE(changed.size(), 1);
    QTest::keyClick(recorder.field(), Qt::Key_K, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(changed.size(), 2);
    QCOMPARE(recorder.value().value(QStringLiteral("characters")).toString(), QStringLiteral("K"));
    QCOMPARE(recorder.value().value(QStringLiteral("charactersIgnoringModifiers")).toString(),
             QStringLiteral("k"));
    QCOMPARE(recorder.field()->text(),
             QKeySequence(QStringLiteral("Ctrl+Shift+K")).toString(QKeySequence::NativeText));

    // Escape only ends the recording; Backspace clears.
    QTest::keyClick(recorder.field(), Qt::Key_Escape);
    QVERIFY(recorder.shortcut().isSet());
    QTest::keyClick(recorder.field(), Qt::Key_Backspace);
    QCOMPARE(changed.size(), 3);
    QVERIFY(recorder.value().isEmpty());
}

VELLOX_TEST_MAIN(TestCapturePanel)
#include "tst_capturepanel.moc"
