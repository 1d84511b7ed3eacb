#include "app/widgets/AppController.h"
#include "app/widgets/FirstRunPanel.h"
#include "app/widgets/MainWindow.h"
#include "core/AppPaths.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "library/NotebookRegistry.h"
#include "render/StyleFolderSeeder.h"
#include "support/TestHome.h"
#include "widgets/NotebookSideBar.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

class TestStartup : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        TestHome::instance()->reset();
        m_root.reset(new QTemporaryDir);
    }

    void styleFolderIsSeededOnlyWhenMissing()
    {
        const QString folder = AppPaths::cssStyleFolder();
        const QString shipped = QStringLiteral(VELLOX_SOURCE_RESOURCES) + "/styles";
        QVERIFY(StyleFolderSeeder::seed(folder, shipped));
        const QStringList expected = {"Delicious Contrast.css", "Delicious White.css",
                                      "Standard Night.css", "Standard.css"};
        QCOMPARE(QDir(folder).entryList(QDir::Files, QDir::Name), expected);
        for (const QString &name : expected)
            QVERIFY(QFileInfo(folder + name).size() > 500);

        // An existing folder is left alone, even when the user emptied it.
        for (const QString &name : expected)
            QFile::remove(folder + name);
        QVERIFY(!StyleFolderSeeder::seed(folder, shipped));
        QVERIFY(QDir(folder).entryList(QDir::Files).isEmpty());
    }

    void failedCopiesAreLoggedInOrderAfterAllTries()
    {
        const QString folder = AppPaths::cssStyleFolder();
        for (int i = 1; i <= 4; ++i)
            QTest::ignoreMessage(QtWarningMsg,
                                 QRegularExpression(QString("^ERRORCOPY%1 .* $").arg(i)));
        QVERIFY(StyleFolderSeeder::seed(folder, m_root->path() + "/nowhere"));
        QVERIFY(QDir(folder).exists());
    }

    void firstRunPanelNeedsNameAndFolder()
    {
        UserDefaults &d = UserDefaults::standard();
        AppController controller(d);
        const QString folder = m_root->path() + "/Diary";
        QDir().mkpath(folder);
        bool checked = false;
        QTimer::singleShot(0, this, [&] {
            FirstRunPanel *panel = controller.firstRunPanel();
            QVERIFY(panel && panel->isVisible());
            QVERIFY(!panel->okButton()->isEnabled());
            QTest::keyClicks(panel->nameField(), "My Diary");
            QVERIFY(!panel->okButton()->isEnabled()); // a name but no folder
            controller.firstRun_setFolder(folder);
            QVERIFY(panel->okButton()->isEnabled());
            panel->nameField()->clear();
            QVERIFY(!panel->okButton()->isEnabled()); // a folder but no name
            QTest::keyClicks(panel->nameField(), "My Diary");
            QVERIFY(panel->okButton()->isEnabled());
            checked = true;
            QTest::mouseClick(panel->okButton(), Qt::LeftButton);
        });
        QVERIFY(controller.awakeFromNib());
        QVERIFY(checked);
        const auto records = d.recordsForKey("DiarySaveDestinations");
        QCOMPARE(records.size(), 1);
        QCOMPARE(records[0].value("DiaryName").toString(), QString("My Diary"));
        QCOMPARE(records[0].value("DiaryDocumentPath").toString(), folder);
        QVERIFY(!records[0].contains("DiarySecURL"));
        QCOMPARE(controller.myPersonalSavePath(), folder + "/");
        QCOMPARE(controller.window()->windowTitle(), QString("My Diary"));
        QCOMPARE(controller.window()->notebookPopUp()->currentText(), QString("My Diary"));
        // Nothing but the notebook was written: defaults stay unwritten.
        d.sync();
        QSettings raw(d.filePath(), QSettings::IniFormat);
        for (const QString &key : raw.allKeys())
            QVERIFY2(key.startsWith("DiarySaveDestinations/"), qPrintable(key));
    }

    void cancellingTheFirstRunWritesNothing()
    {
        UserDefaults &d = UserDefaults::standard();
        AppController controller(d);
        QTimer::singleShot(0, this, [&] {
            QTest::keyClicks(controller.firstRunPanel()->nameField(), "Half done");
            QTest::mouseClick(controller.firstRunPanel()->cancelButton(), Qt::LeftButton);
        });
        QVERIFY(!controller.awakeFromNib());
        QVERIFY(controller.firstRunCancelled());
        d.sync();
        QVERIFY(!d.hasStoredValue("DiarySaveDestinations"));
        QVERIFY(!QFile::exists(d.filePath()) ||
                QSettings(d.filePath(), QSettings::IniFormat).allKeys().isEmpty());
    }

    void tenNotebooksUseTheOverflowRow()
    {
        UserDefaults &d = UserDefaults::standard();
        QList<QVariantMap> list;
        for (int i = 0; i < 10; ++i) {
            const QString path = m_root->path() + QString("/n%1").arg(i);
            QDir().mkpath(path);
            list << QVariantMap{{"DiaryName", QString("Notebook %1").arg(i)},
                                {"DiaryDocumentPath", path}};
        }
        NotebookRegistry(d).store(list);
        AppController controller(d);
        QVERIFY(controller.awakeFromNib());
        MainWindow *window = controller.window();
        NotebookSideBar *sideBar = window->sideBar();
        QCOMPARE(window->notebookPopUp()->count(), 10);
        QCOMPARE(sideBar->rowCount(), 7);
        QCOMPARE(sideBar->selectedRow(), -1);
        QCOMPARE(controller.myPersonalSavePath(), m_root->path() + "/n0/");

        window->notebookPopUp()->setCurrentIndex(9);
        controller.selectDiary(9);
        QCOMPARE(sideBar->rowCount(), 8);
        QCOMPARE(sideBar->selectedRow(), 7);
        QCOMPARE(sideBar->rowToolTip(7), QString("Notebook 9"));
        QCOMPARE(controller.myPersonalSavePath(), m_root->path() + "/n9/");
        QCOMPARE(window->windowTitle(), QString("Notebook 9"));

        // Clicking a plain row, then the overflow row, finds the notebook by name.
        QTest::mouseClick(sideBar->button(2), Qt::LeftButton);
        QCOMPARE(window->notebookPopUp()->currentIndex(), 2);
        QCOMPARE(controller.myPersonalSavePath(), m_root->path() + "/n2/");
        QTest::mouseClick(sideBar->button(7), Qt::LeftButton);
        QCOMPARE(window->notebookPopUp()->currentIndex(), 9);
        QCOMPARE(controller.myPersonalSavePath(), m_root->path() + "/n9/");

        // A notebook removed elsewhere: the pop-up is longer than the list, so notebook 0
        // becomes current at once and the menus are rebuilt a second later.
        list.removeLast();
        NotebookRegistry(d).store(list);
        NotificationCenter::defaultCenter().post(Notifications::DiaryCollectionUpdated);
        QCOMPARE(controller.myPersonalSavePath(), m_root->path() + "/n0/");
        QCOMPARE(window->notebookPopUp()->currentIndex(), 0);
        QTRY_COMPARE(window->notebookPopUp()->count(), 9);
    }

    void windowStartsWithReadOnlyEditorAndNamedControls()
    {
        UserDefaults &d = UserDefaults::standard();
        const QString path = m_root->path() + "/n";
        QDir().mkpath(path);
        NotebookRegistry(d).store({{{"DiaryName", "N"}, {"DiaryDocumentPath", path}}});
        d.setBool("USEBLACKDOCUMENT", true);
        AppController controller(d);
        QVERIFY(controller.awakeFromNib());
        MainWindow *window = controller.window();
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        QVERIFY(window->editor()->isReadOnly());
        QCOMPARE(window->editor()->placeholderText(), QString("Enter a title to write a note"));
        // A slash cannot get into a title: it would hide the entry in a subfolder.
        QTest::keyClicks(window->titleField(), "June/July");
        QCOMPARE(window->titleField()->text(), QString("JuneJuly"));
        window->titleField()->clear();
        // Every visible control can be found by a screen reader.
        const auto widgets = window->findChildren<QWidget *>();
        for (QWidget *w : widgets) {
            if (!w->isVisible() || !w->focusPolicy() || qobject_cast<QMenu *>(w) ||
                w->inherits("QScrollBar") || w->objectName().startsWith("qt_"))
                continue;
            QVERIFY2(!w->accessibleName().isEmpty(), w->metaObject()->className());
            QVERIFY2(!w->toolTip().isEmpty(), w->metaObject()->className());
        }
        // Every menu item has its English text: a bare key means a missing translation entry.
        const QRegularExpression bareKey("^[A-Z0-9]+_[A-Z0-9_]+$");
        std::function<void(QMenu *)> visit = [&](QMenu *menu) {
            for (QAction *action : menu->actions()) {
                QVERIFY2(action->isSeparator() || !bareKey.match(action->text()).hasMatch(),
                         qPrintable(action->text()));
                if (action->menu())
                    visit(action->menu());
            }
        };
        for (QAction *top : window->menuBar()->actions())
            visit(top->menu());
    }

private:
    std::unique_ptr<QTemporaryDir> m_root;
};

VELLOX_TEST_MAIN(TestStartup)
#include "tst_startup.moc"
