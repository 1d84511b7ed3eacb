#include "app/widgets/AppController.h"
#include "app/widgets/FirstRunPanel.h"
#include "app/widgets/MainWindow.h"
#include "app/widgets/PreferencesController.h"
#include "app/widgets/Startup.h"
#include "core/AppPaths.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "editor/widgets/Vellox_EnhancedTextView.h"
#include "library/NotebookRegistry.h"
#include "render/StyleFolderSeeder.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"
#include "widgets/Alert.h"
#include "widgets/NotebookSideBar.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

// The launch as main() runs it, on the real window.
namespace {
const QStringList kStyles = {"Delicious Contrast.css", "Delicious White.css", "Standard Night.css",
                             "Standard.css"};

QList<QAction *> allActions(QMenu *menu)
{
    QList<QAction *> found;
    for (QAction *action : menu->actions()) {
        if (action->isSeparator())
            continue;
        found << action;
        if (action->menu())
            found << allActions(action->menu());
    }
    return found;
}

QAction *childWithTag(QMenu *menu, int tag)
{
    for (QAction *action : menu ? menu->actions() : QList<QAction *>()) {
        if (action->data().toInt() == tag)
            return action;
    }
    return nullptr;
}
} // namespace

class TestStartup : public QObject
{
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> m_root;

    UserDefaults &defaults() { return UserDefaults::standard(); }

    QString notebookFolder(const QString &name)
    {
        const QString path = m_root->path() + '/' + name;
        QDir().mkpath(path);
        return path;
    }

    void configureNotebooks(int count)
    {
        QList<QVariantMap> list;
        for (int i = 0; i < count; ++i)
            list << QVariantMap{{"DiaryName", QString("Notebook %1").arg(i)},
                                {"DiaryDocumentPath", notebookFolder(QString("n%1").arg(i))}};
        NotebookRegistry(defaults()).store(list);
    }

    // Runs step on the dialog the launch is about to wait in, from that dialog's own loop.
    void whenModal(std::function<void(QWidget *)> step)
    {
        QTimer::singleShot(0, this, [step] { step(QApplication::activeModalWidget()); });
    }

private Q_SLOTS:
    void init()
    {
        TestHome::instance()->reset();
        m_root = std::make_unique<QTemporaryDir>();
    }

    void launchSeedsStylesOnceAndTicksTheLanguage()
    {
        configureNotebooks(1);
        defaults().setInteger("TypographyUseMarkupLanguage", 4);
        const QString folder = AppPaths::cssStyleFolder();
        {
            Startup startup(defaults());
            QVERIFY(startup.launch());
            QVERIFY(startup.controller()->window()->isVisible());
            QCOMPARE(QDir(folder).entryList(QDir::Files, QDir::Name), kStyles);
            for (const QString &name : kStyles)
                QCOMPARE(readBytes(folder + name), readBytes(AppPaths::resource("styles/" + name)));

            // Walked as the launch contract states it: main menu item 2, its item tagged 800,
            // that item's item tagged 900, then 900 + language.
            QMenuBar *bar = startup.controller()->window()->menuBar();
            QMenu *languages = nullptr;
            if (QAction *typography = childWithTag(bar->actions().value(2)->menu(), 800))
                if (QAction *menu = childWithTag(typography->menu(), 900))
                    languages = menu->menu();
            QVERIFY(languages);
            QStringList ticked;
            for (QAction *action : languages->actions())
                if (action->isChecked())
                    ticked << QString::number(action->data().toInt());
            QCOMPARE(ticked, QStringList{"904"});
        }
        // The folder exists, though empty: the next launch copies nothing.
        for (const QString &name : kStyles)
            QVERIFY(QFile::remove(folder + name));
        Startup again(defaults());
        QVERIFY(again.launch());
        QVERIFY(QDir(folder).entryList(QDir::Files).isEmpty());
    }

    void missingStylesAreLoggedInOrderAfterAllTries()
    {
        for (int i = 1; i <= 4; ++i)
            QTest::ignoreMessage(QtWarningMsg,
                                 QRegularExpression(QString("^ERRORCOPY%1 .* $").arg(i)));
        QVERIFY(StyleFolderSeeder::seed(AppPaths::cssStyleFolder(), m_root->path() + "/nowhere"));
        QVERIFY(QDir(AppPaths::cssStyleFolder()).exists());
    }

    void firstRunNeedsNameAndFolder()
    {
        const QString folder = notebookFolder("Diary");
        QList<bool> okStates; // nothing, name only, name and folder, folder only
        bool chooserFound = false;
        whenModal([&](QWidget *modal) {
            auto *panel = qobject_cast<FirstRunPanel *>(modal);
            if (!panel)
                return;
            okStates << panel->okButton()->isEnabled();
            QTest::keyClicks(panel->nameField(), "My Diary");
            okStates << panel->okButton()->isEnabled();
            QTest::mouseClick(panel->chooseButton(), Qt::LeftButton);
            auto *chooser = panel->findChild<QFileDialog *>();
            chooserFound = chooser && chooser->isVisible();
            if (chooser) {
                chooser->setDirectory(folder);
                static_cast<QDialog *>(chooser)->accept();
            }
            okStates << panel->okButton()->isEnabled();
            panel->nameField()->clear();
            okStates << panel->okButton()->isEnabled();
            QTest::keyClicks(panel->nameField(), "My Diary");
            QTest::mouseClick(panel->okButton(), Qt::LeftButton);
        });
        Startup startup(defaults());
        QVERIFY(startup.launch());
        QVERIFY(chooserFound);
        QCOMPARE(okStates, QList<bool>({false, false, true, false}));

        const auto records = defaults().recordsForKey("DiarySaveDestinations");
        QCOMPARE(records.size(), 1);
        QCOMPARE(records[0].value("DiaryName").toString(), QString("My Diary"));
        QCOMPARE(QDir(records[0].value("DiaryDocumentPath").toString()), QDir(folder));
        QCOMPARE(startup.controller()->myPersonalSavePath(), folder + "/");
        QCOMPARE(startup.controller()->window()->windowTitle(), QString("My Diary"));
        // Registered defaults are answered, never written: the file holds the notebook only.
        defaults().sync();
        QSettings raw(defaults().filePath(), QSettings::IniFormat);
        for (const QString &key : raw.allKeys())
            QVERIFY2(key.startsWith("DiarySaveDestinations/"), qPrintable(key));
    }

    void cancellingTheFirstRunWritesNothing()
    {
        whenModal([](QWidget *modal) {
            if (auto *panel = qobject_cast<FirstRunPanel *>(modal)) {
                QTest::keyClicks(panel->nameField(), "Half done");
                QTest::mouseClick(panel->cancelButton(), Qt::LeftButton);
            }
        });
        Startup startup(defaults());
        QVERIFY(!startup.launch());
        defaults().sync();
        QVERIFY(!QFile::exists(defaults().filePath()) ||
                QSettings(defaults().filePath(), QSettings::IniFormat).allKeys().isEmpty());
    }

    void everyActionIsDescribedAndKeysAreUnique()
    {
        configureNotebooks(1);
        Startup startup(defaults());
        QVERIFY(startup.launch());
        MainWindow *window = startup.controller()->window();
        QVERIFY(QTest::qWaitForWindowExposed(window));

        QList<QAction *> actions;
        for (QAction *top : window->menuBar()->actions())
            actions << top << allActions(top->menu());
        QMenu context;
        startup.controller()->editor()->contextMenuTextViewSetup(&context);
        actions << context.actions() << window->entryList()->actions();

        const QRegularExpression bareId("^[A-Z0-9]+_[A-Z0-9_]+$");
        QHash<QString, QString> ownerOfKeys;
        QSet<QString> names;
        for (QAction *action : std::as_const(actions)) {
            if (action->isSeparator())
                continue;
            const QString name = action->objectName();
            QVERIFY2(!name.isEmpty(), qPrintable(action->text()));
            // The editor's context menu holds fresh copies of two Format items.
            QVERIFY2(!names.contains(name) || action->parent() == &context, qPrintable(name));
            names.insert(name);
            QVERIFY2(!action->text().isEmpty() && !bareId.match(action->text()).hasMatch(),
                     qPrintable(name));
            QVERIFY2(!action->toolTip().isEmpty() && !bareId.match(action->toolTip()).hasMatch(),
                     qPrintable(name));
            if (action->parent() == &context)
                continue;
            for (const QKeySequence &keys : action->shortcuts()) {
                const QString text = keys.toString();
                QVERIFY2(!ownerOfKeys.contains(text),
                         qPrintable(text + " on " + name + " and " + ownerOfKeys.value(text)));
                ownerOfKeys.insert(text, name);
            }
        }
        QVERIFY(names.contains("actionRemoveMarkup") && names.contains("actionMarkupLanguage7"));

        // A screen reader reads each menu item by its text.
        for (QMenu *menu : window->findChildren<QMenu *>()) {
            QAccessibleInterface *face = QAccessible::queryAccessibleInterface(menu);
            QVERIFY(face);
            for (int i = 0; i < face->childCount(); ++i) {
                QAction *action = menu->actions().value(i);
                if (!action || action->isSeparator())
                    continue;
                QCOMPARE(face->child(i)->text(QAccessible::Name),
                         QString(action->text()).remove('&'));
            }
        }
        // Every visible control can be found by a screen reader and explains itself.
        for (QWidget *w : window->findChildren<QWidget *>()) {
            if (!w->isVisible() || !w->focusPolicy() || w->inherits("QScrollBar") ||
                w->objectName().startsWith("qt_"))
                continue;
            QVERIFY2(!w->accessibleName().isEmpty(), w->metaObject()->className());
            QVERIFY2(!w->toolTip().isEmpty(), w->metaObject()->className());
        }
    }

    void notebookPopUpListsNamesBesideIcons()
    {
        configureNotebooks(3);
        Startup startup(defaults());
        QVERIFY(startup.launch());
        QComboBox *popUp = startup.controller()->window()->notebookPopUp();
        popUp->showPopup();
        QAbstractItemView *view = popUp->view();
        QVERIFY(QTest::qWaitForWindowExposed(view->window()));
        const QImage shot = view->viewport()->grab().toImage();
        for (int row = 0; row < 3; ++row) {
            const QModelIndex index = popUp->model()->index(row, 0);
            QCOMPARE(index.data(Qt::DisplayRole).toString(), QString("Notebook %1").arg(row));
            // Right of the icon the row shows its name: pixels of a colour other than the
            // row's background.
            const QRect rect = view->visualRect(index).intersected(shot.rect());
            const QRect textArea(rect.left() + popUp->iconSize().width() + 8, rect.top(),
                                 rect.width() / 2, rect.height());
            const QRgb background = shot.pixel(rect.right() - 2, rect.center().y());
            int ink = 0;
            for (int y = textArea.top(); y <= textArea.bottom(); ++y)
                for (int x = textArea.left(); x <= textArea.right(); ++x)
                    ink += qAbs(qGray(shot.pixel(x, y)) - qGray(background)) > 80;
            QVERIFY2(ink > 20, qPrintable(QString("row %1 shows no name").arg(row)));
        }
        popUp->hidePopup();
    }

    void tenNotebooksUseTheOverflowRow()
    {
        configureNotebooks(10);
        Startup startup(defaults());
        QVERIFY(startup.launch());
        AppController *controller = startup.controller();
        MainWindow *window = controller->window();
        NotebookSideBar *sideBar = window->sideBar();
        QCOMPARE(window->notebookPopUp()->count(), 10);
        QCOMPARE(sideBar->rowCount(), 7);
        QCOMPARE(sideBar->selectedRow(), -1);
        QCOMPARE(controller->myPersonalSavePath(), m_root->path() + "/n0/");

        window->notebookPopUp()->setCurrentIndex(9);
        controller->selectDiary(9);
        QCOMPARE(sideBar->rowCount(), 8);
        QCOMPARE(sideBar->selectedRow(), 7);
        QCOMPARE(sideBar->rowToolTip(7), QString("Notebook 9"));
        QCOMPARE(window->windowTitle(), QString("Notebook 9"));

        // A plain row, then the overflow row, which is found by the notebook's name.
        QTest::mouseClick(sideBar->button(2), Qt::LeftButton);
        QCOMPARE(window->notebookPopUp()->currentIndex(), 2);
        QCOMPARE(controller->myPersonalSavePath(), m_root->path() + "/n2/");
        QTest::mouseClick(sideBar->button(7), Qt::LeftButton);
        QCOMPARE(window->notebookPopUp()->currentIndex(), 9);
        QCOMPARE(controller->myPersonalSavePath(), m_root->path() + "/n9/");

        // Only the preferences change the list: the same notice from anyone else is not
        // taken as a deletion.
        QList<QVariantMap> shorter = NotebookRegistry(defaults()).records();
        shorter.removeLast();
        NotebookRegistry(defaults()).store(shorter);
        QObject stranger;
        NotificationCenter::defaultCenter().post(Notifications::DiaryCollectionUpdated, &stranger);
        QCOMPARE(controller->myPersonalSavePath(), m_root->path() + "/n9/");

        // Deleting in the preferences: notebook 0 becomes current at once and the menus are
        // rebuilt a second later.
        Alert::setResponder([](const AlertRequest &) { return 0; });
        PreferencesController prefs(defaults());
        prefs.setDiarySelectedWithIndex(8);
        prefs.diaryDdeleteSelected();
        Alert::setResponder({});
        QCOMPARE(controller->myPersonalSavePath(), m_root->path() + "/n0/");
        QCOMPARE(window->notebookPopUp()->currentIndex(), 0);
        QTRY_COMPARE(window->notebookPopUp()->count(), 8);
    }
};

VELLOX_TEST_MAIN(TestStartup)
#include "tst_startup.moc"
