#include "core/AppPaths.h"
#include "core/PropertyList.h"
#include "core/UserDefaults.h"
#include "editor/TabActionStore.h"
#include "editor/widgets/OneClickStyleEditorController.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"
#include "widgets/Alert.h"

#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTableView>
#include <QTemporaryDir>
#include <QtTest>

namespace {
QString internalFile()
{
    return TabActionStore::internalPath();
}

QVariantMap onDisk(const QString &path = internalFile())
{
    return TabActionStore::load(path);
}

void select(OneClickStyleEditorController &window, const QString &name)
{
    const int row = int(window.tableDisplayArray().indexOf(name));
    QVERIFY2(row >= 0, qPrintable(name));
    window.stylesTable()->selectRow(row);
    QCOMPARE(window.shownTabAction(), name);
}

void typeAtEnd(OneClickStyleEditorController &window, const QString &text)
{
    QPlainTextEdit *area = window.styleEditTextView();
    area->moveCursor(QTextCursor::End);
    QTest::keyClicks(area, text);
}

// The open name editor, if any (closed editors linger until deleted, so ask the view).
QLineEdit *nameEditor(OneClickStyleEditorController &window)
{
    QTableView *table = window.stylesTable();
    for (int row = 0; row < table->model()->rowCount(); ++row)
        if (auto *editor =
                qobject_cast<QLineEdit *>(table->indexWidget(table->model()->index(row, 0))))
            return editor;
    return nullptr;
}

} // namespace

// The window as the user opens it.
struct ShownWindow : OneClickStyleEditorController
{
    explicit ShownWindow(UserDefaults &defaults)
        : OneClickStyleEditorController(defaults)
    {
        show();
    }
};

class TestTabActionWindow : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<UserDefaults> store;

    QVariantMap forTheTypingEngine() const
    {
        return TabActionStore::availableTabActions(TabActionStore::FileSettings::from(*store));
    }

private Q_SLOTS:
    void init()
    {
        TestHome::instance()->reset();
        store.reset();
        QFile::remove(TestHome::instance()->path() + "/window.conf");
        store = std::make_unique<UserDefaults>(TestHome::instance()->path() + "/window.conf");
        Alert::clearHistory();
        Alert::setResponder([](const AlertRequest &) { return 0; });
    }

    void lookingWritesNothing()
    {
        {
            ShownWindow window(*store);
            QVERIFY(window.tableDisplayArray().isEmpty());
            QVERIFY(!window.styleEditTextView()->isEnabled());
            QVERIFY(window.fileProblem().isEmpty());
            window.close();
        }
        QVERIFY(!QFile::exists(internalFile()));

        // An unreadable file is shown as an empty list and left exactly as it is.
        const QByteArray broken = "<?xml version=\"1.0\"?><plist><dict><key>sig</key>";
        writeBytes(internalFile(), broken);
        ShownWindow window(*store);
        QVERIFY(window.tableDisplayArray().isEmpty());
        QVERIFY(window.fileProblem().contains(internalFile()));
        window.close();
        QCOMPARE(readBytes(internalFile()), broken);
        QCOMPARE(QDir(AppPaths::supportFolder()).entryList(QDir::Files).size(), 1);

        // Once the user changes the list, it is written and the old file is kept aside.
        window.show();
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("could not be read.*copy was kept"));
        window.addNewStyle();
        QCOMPARE(onDisk(), (QVariantMap{{"NewTabAction", "Empty"}}));
        QCOMPARE(QDir(AppPaths::supportFolder()).entryList(QDir::Files).size(), 2);
        QVERIFY(window.fileProblem().isEmpty());
    }

    void addingTwiceLeavesOneNewTabAction()
    {
        ShownWindow window(*store);
        window.addNewStyle();
        QVERIFY(nameEditor(window));
        window.addNewStyle();
        QCOMPARE(window.tableDisplayArray(), QStringList{"NewTabAction"});
        QCOMPARE(window.listOfTabActions(), (QVariantMap{{"NewTabAction", "Empty"}}));
        QCOMPARE(window.styleEditTextView()->toPlainText(), QString("Empty"));
        QCOMPARE(onDisk(), window.listOfTabActions());
        QVERIFY(Alert::history().isEmpty());

        // Text already written for the unnamed action survives another click on Add.
        window.styleEditTextView()->selectAll();
        QTest::keyClicks(window.styleEditTextView(), "kept");
        window.addNewStyle();
        QCOMPARE(onDisk(), (QVariantMap{{"NewTabAction", "kept"}}));
        QCOMPARE(window.styleEditTextView()->toPlainText(), QString("kept"));
    }

    void refusedRenamesAlertAndChangeNothing()
    {
        QVERIFY(TabActionStore::save(internalFile(), {{"sig", "Regards"}, {"addr", "Main St"}}));
        const QByteArray before = readBytes(internalFile());
        ShownWindow window(*store);
        select(window, "sig");
        const int row = int(window.tableDisplayArray().indexOf("sig"));

        // Another row's name, and the row's own unchanged name, are both duplicates.
        for (const QString &taken : {QString("addr"), QString("sig")}) {
            window.renameTabAction(row, taken);
            QCOMPARE(Alert::history().last().title, qtTrId("TAB_ACTION_DUPLICATE_TITLE"));
        }
        QCOMPARE(Alert::history().size(), 2);

        // An emptied name is taken as a change of mind: no alert.
        window.renameTabAction(row, "");
        QCOMPARE(Alert::history().size(), 2);

        QCOMPARE(window.tableDisplayArray(), (QStringList{"addr", "sig"}));
        QCOMPARE(readBytes(internalFile()), before);
    }

    // The rename goes through the table's own name editor and carries the expansion that
    // is being edited beside it.
    void renameThroughTheTableEditor()
    {
        QVERIFY(TabActionStore::save(internalFile(), {{"sig", "Regards"}, {"zip", "12345"}}));
        ShownWindow window(*store);
        select(window, "sig");
        typeAtEnd(window, ", Ann");
        QTableView *table = window.stylesTable();
        table->edit(table->model()->index(0, 0));
        QLineEdit *editor = nameEditor(window);
        QVERIFY(editor);
        editor->setText("two words");
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(Alert::history().size(), 1);
        QCOMPARE(Alert::history().last().title, qtTrId("TAB_ACTION_WHITHE_TITLE"));
        // The name is open for editing again, so the user can correct it straight away.
        QTRY_VERIFY(nameEditor(window));
        editor = nameEditor(window);
        editor->setText("greeting");
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(window.tableDisplayArray(), (QStringList{"greeting", "zip"}));
        QCOMPARE(window.shownTabAction(), QString("greeting"));
        QCOMPARE(table->selectionModel()->selectedRows().value(0).row(), 0);
        QCOMPARE(onDisk(), (QVariantMap{{"greeting", "Regards, Ann"}, {"zip", "12345"}}));
        QCOMPARE(forTheTypingEngine().value("greeting").toString(), QString("Regards, Ann"));
        QCOMPARE(Alert::history().size(), 1);
    }

    void movingOnSavesWhatWasTyped()
    {
        QVERIFY(TabActionStore::save(internalFile(), {{"a", "Alpha"}, {"b", "Beta"}}));
        ShownWindow window(*store);
        select(window, "a");
        typeAtEnd(window, " one");
        select(window, "b");
        QCOMPARE(window.styleEditTextView()->toPlainText(), QString("Beta"));
        // The typing engine reads the file on every Tab, so it sees the change at once.
        QCOMPARE(forTheTypingEngine().value("a").toString(), QString("Alpha one"));

        typeAtEnd(window, " two");
        window.close();
        QCOMPARE(onDisk().value("b").toString(), QString("Beta two"));

        // Leaving the window for another one saves as well.
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            QSKIP("this platform plugin does not activate windows");
        select(window, "a");
        typeAtEnd(window, " three");
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QTRY_COMPARE(onDisk().value("a").toString(), QString("Alpha one three"));
    }

    void untouchedExpansionsKeepEveryCharacter()
    {
        const QString tricky = QString("line\r\nnext") + QChar(0xA0) + "nbsp" + QChar(0x2028) +
                               QString::fromUtf8("\xF0\x9F\x98\x80 {*} and {*}\t");
        QVERIFY(TabActionStore::save(internalFile(), {{"t", tricky}, {"u", "plain"}}));
        const QByteArray before = readBytes(internalFile());
        ShownWindow window(*store);
        select(window, "t");
        select(window, "u");
        select(window, "t");
        window.close();
        QCOMPARE(readBytes(internalFile()), before);

        // Edited text keeps its no-break spaces, emoji and tabs; Shift+Return is a line break.
        window.show();
        select(window, "t");
        typeAtEnd(window, "x");
        QTest::keyClick(window.styleEditTextView(), Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClicks(window.styleEditTextView(), "y");
        select(window, "u");
        QCOMPARE(onDisk().value("t").toString(),
                 QString("line\nnext") + QChar(0xA0) + "nbsp\n" +
                     QString::fromUtf8("\xF0\x9F\x98\x80 {*} and {*}\tx\ny"));
    }

    void removeDeletesTheSelectedAction()
    {
        QVERIFY(TabActionStore::save(internalFile(), {{"a", "1"}, {"b", "2"}, {"c", "3"}}));
        ShownWindow window(*store);
        select(window, "b");
        typeAtEnd(window, " unsaved");
        window.removeStyle();
        QCOMPARE(onDisk(), (QVariantMap{{"a", "1"}, {"c", "3"}}));
        QCOMPARE(window.shownTabAction(), QString("c"));
        QCOMPARE(window.styleEditTextView()->toPlainText(), QString("3"));

        window.stylesTable()->clearSelection();
        window.removeStyle();
        QCOMPARE(onDisk().size(), 2);

        select(window, "c");
        window.removeStyle();
        QCOMPARE(window.shownTabAction(), QString("a"));
        window.removeStyle();
        QVERIFY(window.tableDisplayArray().isEmpty());
        QCOMPARE(onDisk(), QVariantMap());
        QVERIFY(!window.styleEditTextView()->isEnabled());
    }

    void externalFiles()
    {
        QTemporaryDir dir;
        QVERIFY(TabActionStore::save(internalFile(), {{"in", "internal"}}));
        ShownWindow window(*store);
        select(window, "in");
        typeAtEnd(window, "!");

        // A new external file: the open list is saved first, the new file starts empty.
        window.createExternalTabActionFile(dir.filePath("mine"));
        const QString mine = dir.filePath("mine.tabActions");
        QCOMPARE(onDisk(), (QVariantMap{{"in", "internal!"}}));
        QCOMPARE(readBytes(mine), PropertyList::toXml(QVariantMap()));
        QCOMPARE(store->value(Settings::TabActionExternFilePath), mine);
        QVERIFY(store->value(Settings::TabActionUseExternalFile));
        QVERIFY(window.tableDisplayArray().isEmpty());
        window.addNewStyle();
        QCOMPARE(onDisk(mine), (QVariantMap{{"NewTabAction", "Empty"}}));
        QCOMPARE(forTheTypingEngine(), onDisk(mine));

        // Switched off in the preferences while open: the edit is saved, the other list shows.
        typeAtEnd(window, " edited");
        store->setValue(Settings::TabActionUseExternalFile, false);
        QCOMPARE(onDisk(mine), (QVariantMap{{"NewTabAction", "Empty edited"}}));
        QCOMPARE(window.tableDisplayArray(), QStringList{"in"});
        QCOMPARE(onDisk(), (QVariantMap{{"in", "internal!"}}));

        // The path alone does not switch files; switching on again does.
        const QString team = dir.filePath("team.tabActions");
        QVERIFY(TabActionStore::save(team, {{"brb", "be right back"}}));
        store->setValue(Settings::TabActionExternFilePath, team);
        QCOMPARE(window.tableDisplayArray(), QStringList{"in"});
        store->setValue(Settings::TabActionUseExternalFile, true);
        QCOMPARE(window.tableDisplayArray(), QStringList{"brb"});

        // Choosing an existing file shows its list.
        window.useExternalTabActionFile(mine);
        QCOMPARE(window.pathToTabActionsfile(), mine);
        QCOMPARE(window.tableDisplayArray(), QStringList{"NewTabAction"});
        QCOMPARE(window.styleEditTextView()->toPlainText(), QString("Empty edited"));
    }

    // Whatever happened to the file while the window stayed open or hidden is what the
    // window shows when it comes forward, and a list deleted meanwhile is not written back.
    void comingForwardShowsTheFileAsItIsNow()
    {
        QVERIFY(TabActionStore::save(internalFile(), {{"a", "1"}, {"b", "2"}}));
        ShownWindow window(*store);
        select(window, "b");
        QVERIFY(TabActionStore::save(internalFile(), {{"b", "changed"}, {"c", "3"}}));
        window.showWindow();
        QCOMPARE(window.tableDisplayArray(), (QStringList{"b", "c"}));
        QCOMPARE(window.shownTabAction(), QString("b"));
        QCOMPARE(window.styleEditTextView()->toPlainText(), QString("changed"));

        QVERIFY(QFile::remove(internalFile()));
        window.showWindow();
        QVERIFY(window.tableDisplayArray().isEmpty());
        window.hide();
        QVERIFY(!QFile::exists(internalFile()));
    }

    void everyControlIsNamedAndExplained()
    {
        ShownWindow window(*store);
        QVERIFY(!window.windowTitle().isEmpty());
        const QList<QWidget *> controls = window.findChildren<QWidget *>();
        int checked = 0;
        for (QWidget *w : controls) {
            if (!w->isVisibleTo(&window))
                continue;
            if (!qobject_cast<QAbstractButton *>(w) && !qobject_cast<QAbstractItemView *>(w) &&
                !qobject_cast<QPlainTextEdit *>(w) && !qobject_cast<QLabel *>(w))
                continue;
            QVERIFY2(!w->accessibleName().isEmpty(), w->metaObject()->className());
            QVERIFY2(!w->toolTip().isEmpty(), qPrintable(w->accessibleName()));
            ++checked;
        }
        QVERIFY(checked >= 9);
    }
};

VELLOX_TEST_MAIN(TestTabActionWindow)
#include "tst_tabactions_window.moc"
