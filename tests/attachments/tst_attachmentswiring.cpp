#include "app/widgets/AppController.h"
#include "app/widgets/MainWindow.h"
#include "app/widgets/Startup.h"
#include "attachments/widgets/AttachmentListModel.h"
#include "attachments/widgets/AttachmentTableView.h"
#include "core/UserDefaults.h"
#include "library/NotebookRegistry.h"
#include "library/widgets/EntryController.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QAction>
#include <QLineEdit>
#include <QListView>
#include <QTemporaryDir>
#include <QtTest>

// The attachments pane inside the launched main window: it follows the entry chosen in the
// list or typed in the title field, opens and closes by itself, and its menu acts.
class TestAttachmentsWiring : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void paneFollowsTheEntryInTheWindow();
};

void TestAttachmentsWiring::paneFollowsTheEntryInTheWindow()
{
    QTemporaryDir root;
    const QString notebook = root.path() + "/Journal/";
    QDir().mkpath(notebook + "Alpha");
    writeBytes(notebook + "Alpha.txt", "Alpha text");
    writeBytes(notebook + "Alpha/a.txt", "a");
    writeBytes(notebook + "Beta.txt", "Beta text");
    UserDefaults &defaults = UserDefaults::standard();
    NotebookRegistry(defaults).store(
        {{{"DiaryName", "Journal"}, {"DiaryDocumentPath", notebook.chopped(1)}}});
    defaults.setValue(Settings::AutoToggleAttachmentView, true);
    Startup startup(defaults);
    QVERIFY(startup.launch());
    MainWindow *window = startup.controller()->window();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    EntryController *entries = startup.controller()->entries();
    auto *list = window->attachmentArea()->findChild<AttachmentTableView *>();
    QVERIFY(list);

    auto choose = [&](const QString &fileName) {
        const int row = int(entries->listofFiles().indexOf(fileName));
        const QRect rect =
            window->entryList()->visualRect(window->entryList()->model()->index(row, 0));
        QTest::mouseClick(window->entryList()->viewport(), Qt::LeftButton, {}, rect.center());
    };
    choose("Alpha.txt");
    QTRY_VERIFY(window->attachmentArea()->isVisible());
    QCOMPARE(list->model()->rowCount(), 1);
    QVERIFY(window->action("actionShowAttachments")->isChecked());
    choose("Beta.txt");
    QTRY_VERIFY(!window->attachmentArea()->isVisible());
    QVERIFY(!window->action("actionShowAttachments")->isChecked());

    // A title typed by hand shows that entry's files once the typing settles.
    QLineEdit *title = window->titleField();
    title->setFocus();
    title->selectAll();
    QTest::keyClicks(title, "Alpha");
    QTRY_COMPARE(list->model()->rowCount(), 1);
    QTRY_VERIFY(window->attachmentArea()->isVisible());

    // The list's menu acts on the selected file.
    QAction *remove = window->action("actionAttachmentRemove");
    QVERIFY(list->actions().contains(remove));
    list->selectRow(0);
    remove->trigger();
    QVERIFY(!QFileInfo::exists(notebook + "Alpha"));
    QCOMPARE(list->model()->rowCount(), 0);
}

VELLOX_TEST_MAIN(TestAttachmentsWiring)
#include "tst_attachmentswiring.moc"
