// The capture panel inside the launched application: the View menu's item toggles it, its
// note pane writes into a notebook that is not the one on display, its search pane reads the
// registered notebooks, and Preferences carries the global key's pane.
#include "app/widgets/AppController.h"
#include "app/widgets/CollcetionViewCalendarAppDelegate.h"
#include "app/widgets/MainWindow.h"
#include "app/widgets/MenubarWiring.h"
#include "app/widgets/PreferencesController.h"
#include "app/widgets/Startup.h"
#include "core/UserDefaults.h"
#include "library/NotebookRegistry.h"
#include "menubar/widgets/CapturePanel.h"
#include "menubar/widgets/GlobalShortcutPane.h"
#include "menubar/widgets/MenubarController.h"
#include "menubar/widgets/StatusBarSearch.h"
#include "notes/widgets/StatusBarNotePane.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>

class TestMenubarWiring : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void menuItemTogglesThePanelAndPreferencesHaveTheKey();
};

void TestMenubarWiring::menuItemTogglesThePanelAndPreferencesHaveTheKey()
{
    QTemporaryDir notebook;
    QTemporaryDir other;
    writeBytes(notebook.filePath(QStringLiteral("Alpha.txt")), "alpha");
    UserDefaults &defaults = UserDefaults::standard();
    NotebookRegistry(defaults).store({{{QStringLiteral("DiaryName"), QStringLiteral("One")},
                                       {QStringLiteral("DiaryDocumentPath"), notebook.path()}},
                                      {{QStringLiteral("DiaryName"), QStringLiteral("Two")},
                                       {QStringLiteral("DiaryDocumentPath"), other.path()}}});
    Startup startup(defaults);
    QVERIFY(startup.launch());

    MenubarController *menubar = menubarController(*startup.controller());
    QVERIFY(menubar);
    CapturePanel *panel = menubar->panel();
    QCOMPARE(panel->paneIds(), (QStringList{CapturePanel::NotePaneId, CapturePanel::SearchPaneId}));
    QAction *item = startup.controller()->window()->action(QStringLiteral("actionCapturePanel"));
    QVERIFY(item);
    QVERIFY(!item->toolTip().isEmpty());

    // A note into the second notebook, while the first is on display; OK ends the capture.
    item->trigger();
    QVERIFY(panel->isOpen());
    panel->showPane(CapturePanel::NotePaneId);
    auto *note = qobject_cast<StatusBarNotePane *>(panel->pane(CapturePanel::NotePaneId));
    QVERIFY(note);
    QCOMPARE(note->notebookPopUp()->count(), 2);
    note->notebookPopUp()->setCurrentIndex(1);
    note->textView()->setPlainText(QStringLiteral("Buy stamps"));
    note->okButton()->click();
    QTRY_VERIFY(!panel->isOpen());
    QVERIFY(note->textView()->toPlainText().isEmpty());
    QVERIFY(readBytes(other.filePath(QStringLiteral("_notes.stfn"))).contains("Buy stamps"));
    QVERIFY(!QFile::exists(notebook.filePath(QStringLiteral("_notes.stfn"))));

    item->trigger();
    QVERIFY(panel->isOpen());
    QCOMPARE(panel->currentPaneId(), CapturePanel::NotePaneId);
    panel->showPane(CapturePanel::SearchPaneId);
    auto *search = qobject_cast<StatusBarSearch *>(panel->pane(CapturePanel::SearchPaneId));
    QVERIFY(search);
    QTRY_COMPARE(search->items(), QStringList{QStringLiteral("Alpha.txt")});
    item->trigger();
    QVERIFY(!panel->isOpen());
    QVERIFY(defaults.value(Settings::StatusBarPaneSelectionPref));

    QTabWidget *tabs = startup.delegate()->preferences()->tabs();
    bool found = false;
    for (int i = 0; i < tabs->count(); ++i)
        found = found || qobject_cast<GlobalShortcutPane *>(tabs->widget(i));
    QVERIFY(found);
}

VELLOX_TEST_MAIN(TestMenubarWiring)
#include "tst_menubarwiring.moc"
