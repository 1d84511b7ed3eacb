#include "app/widgets/AppController.h"
#include "app/widgets/MainWindow.h"
#include "app/widgets/Startup.h"
#include "core/AppPaths.h"
#include "core/UserDefaults.h"
#include "editor/widgets/Vellox_EnhancedTextView.h"
#include "library/NotebookRegistry.h"
#include "library/widgets/EntryController.h"
#include "render/widgets/CSSStykeController.h"
#include "render/widgets/PreviewController.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"
#include "widgets/Alert.h"
#include "widgets/NotebookSideBar.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMenu>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

// The main window as the launch builds it, driven through its widgets and menus: these checks
// cross the entry, editor, preview and style controllers, which their own tests cannot.
namespace {
const QString kHint = QStringLiteral("Enter a title to write a note");

// Opens the menu as a pop-up and clicks the item, as a user does.
void clickMenuItem(QMenu *menu, QAction *item)
{
    QVERIFY(menu && item);
    menu->popup(QPoint(20, 20));
    QVERIFY(QTest::qWaitForWindowExposed(menu));
    const QRect geometry = menu->actionGeometry(item);
    QVERIFY(geometry.isValid());
    QTest::mouseClick(menu, Qt::LeftButton, {}, geometry.center());
    QTRY_VERIFY(!menu->isVisible());
}

// Puts a file's modification date an hour back, so a rewrite is seen as a change whatever
// the file system's clock resolution.
void backdate(const QString &path, const QDateTime &from)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(from.addSecs(-3600), QFileDevice::FileModificationTime));
}
} // namespace

class TestMainWindow : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_root;
    std::unique_ptr<Startup> m_startup;
    QString m_first;  // notebook 0, with its trailing "/"
    QString m_second; // notebook 1
    QList<AlertRequest> m_alerts;

    UserDefaults &defaults() { return UserDefaults::standard(); }
    AppController *app() const { return m_startup->controller(); }
    MainWindow *window() const { return app()->window(); }
    Vellox_EnhancedTextView *editor() const { return app()->editor(); }
    EntryController *entries() const { return app()->entries(); }
    QListView *entryList() const { return window()->entryList(); }

    void startApp()
    {
        m_startup = std::make_unique<Startup>(defaults());
        QVERIFY(m_startup->launch());
        QVERIFY(QTest::qWaitForWindowExposed(window()));
    }

    void clickEntry(const QString &fileName)
    {
        const int row = int(entries()->listofFiles().indexOf(fileName));
        QVERIFY2(row >= 0, qPrintable(fileName));
        const QRect rect = entryList()->visualRect(entryList()->model()->index(row, 0));
        QTest::mouseClick(entryList()->viewport(), Qt::LeftButton, {}, rect.center());
        QCOMPARE(entries()->selectedFileName(), fileName);
    }

    // The preview converts off the window's thread and only while shown: the page it shows
    // once the newest text is converted.
    QString builtPage()
    {
        if (!QTest::qWaitFor([this] { return !app()->preview()->isPending(); }, 30000))
            return QStringLiteral("(the preview was not built)");
        return app()->preview()->lastPageHtml();
    }

    // Shows the preview long enough to read its page, then returns to the editor.
    QString pageShownInPreview()
    {
        QTest::mouseClick(window()->previewModeButton(), Qt::LeftButton);
        const QString html = builtPage();
        QTest::mouseClick(window()->editModeButton(), Qt::LeftButton);
        return html;
    }

    void typeAtEnd(const QString &text)
    {
        editor()->setFocus();
        editor()->setSelectedRange(int(editor()->string().size()), 0);
        QTest::keyClicks(editor(), text);
    }

    void expectEditorShowsHint()
    {
        QVERIFY(!editor()->isEditable());
        QCOMPARE(editor()->string(), kHint);
        QCOMPARE(window()->titleField()->text(), QString());
        QCOMPARE(window()->wordCounter()->text(), QString("0:0"));
        // No step of the entry left behind can be undone into the hint.
        QVERIFY(!window()->action("actionUndo")->isEnabled());
    }

private Q_SLOTS:
    void initTestCase()
    {
        Alert::setResponder([this](const AlertRequest &request) {
            m_alerts << request;
            return 0;
        });
    }

    void init()
    {
        TestHome::instance()->reset();
        m_alerts.clear();
        m_root = std::make_unique<QTemporaryDir>();
        // Blanks in the folder names reach the preview's base address escaped.
        m_first = m_root->path() + "/Journal Notes/";
        m_second = m_root->path() + "/Work/";
        QDir().mkpath(m_first);
        QDir().mkpath(m_second);
        NotebookRegistry(defaults())
            .store({{{"DiaryName", "Journal"}, {"DiaryDocumentPath", m_first.chopped(1)}},
                    {{"DiaryName", "Work"}, {"DiaryDocumentPath", m_second.chopped(1)}}});
    }

    void cleanup()
    {
        m_startup.reset();
        QVERIFY2(m_alerts.isEmpty(), qPrintable(m_alerts.value(0).title));
    }

    void cleanupTestCase() { Alert::setResponder({}); }

    void noWordIsLostAcrossControllers_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<bool>("announced");
        const QStringList actions = {"notebook pop-up", "side bar",     "other entry",
                                     "title edit",      "window close", "new entry, then pop-up"};
        for (const QString &action : actions) {
            // Before the editor's 0.1 s announcement, and with the save already scheduled.
            addRow(qPrintable(action + " at once"), action, false);
            addRow(qPrintable(action + " after announcement"), action, true);
        }
    }

    void noWordIsLostAcrossControllers()
    {
        QFETCH(QString, action);
        QFETCH(bool, announced);
        writeBytes(m_first + "Alpha.txt", "Alpha text");
        writeBytes(m_first + "Beta.txt", "Beta text");
        writeBytes(m_second + "Gamma.txt", "Gamma text");
        startApp();

        QString entryFile = m_first + "Alpha.txt";
        QByteArray expected = "Alpha text and more words";
        QStringList firstFiles = {"Alpha.txt", "Beta.txt"};
        if (action.startsWith("new entry")) {
            QTest::mouseClick(window()->addEntryButton(), Qt::LeftButton);
            QTest::keyClicks(window()->titleField(), "Fresh");
            typeAtEnd("and more words");
            entryFile = m_first + "Fresh.txt";
            expected = "and more words";
            firstFiles << "Fresh.txt";
        } else {
            clickEntry("Alpha.txt");
            typeAtEnd(" and more words");
        }
        if (announced)
            QTRY_VERIFY(entries()->currentDocumentHasEdits());
        QVERIFY(readBytes(entryFile) != expected); // still only in the editor

        if (action == "notebook pop-up" || action.startsWith("new entry"))
            QTest::keyClick(window()->notebookPopUp(), Qt::Key_Down);
        else if (action == "side bar")
            QTest::mouseClick(window()->sideBar()->button(1), Qt::LeftButton);
        else if (action == "other entry")
            clickEntry("Beta.txt");
        else if (action == "title edit")
            QTest::keyClicks(window()->titleField(), "X"); // the caret stands after the title
        else if (action == "window close")
            window()->close();
        // At the moment of the switch the words are where they belong, and nothing is left
        // pending that could land elsewhere later.
        QCOMPARE(readBytes(entryFile), expected);
        QVERIFY(!entries()->hasUnsavedText());

        if (action == "notebook pop-up" || action == "side bar" || action.startsWith("new")) {
            QCOMPARE(app()->myPersonalSavePath(), m_second);
            QCOMPARE(window()->windowTitle(), QString("Work"));
            QCOMPARE(entries()->listofFiles(), QStringList{"Gamma.txt"});
            expectEditorShowsHint();
        } else if (action == "other entry") {
            QCOMPARE(editor()->string(), QString("Beta text"));
            QCOMPARE(window()->titleField()->text(), QString("Beta"));
        }
        QCOMPARE(filesIn(m_first), firstFiles);
        QCOMPARE(readBytes(m_first + "Beta.txt"), QByteArray("Beta text"));
        QCOMPARE(filesIn(m_second), QStringList{"Gamma.txt"});
    }

    void editMenuUndoesAnEngineStepInOneGo()
    {
        writeBytes(m_first + "List.txt", "1. first");
        writeBytes(m_first + "Other.txt", "Other text");
        startApp();
        QMenu *edit = window()->menu("menuEdit");
        QAction *undo = window()->action("actionUndo");
        QAction *redo = window()->action("actionRedo");
        QVERIFY(edit->actions().contains(undo) && edit->actions().contains(redo));

        clickEntry("List.txt");
        QVERIFY(!undo->isEnabled()); // loading an entry is no step of its own
        editor()->setFocus();
        editor()->setSelectedRange(8, 0);
        QTest::keyClick(editor(), Qt::Key_Return);
        QCOMPARE(editor()->string(), QString("1. first\n2. "));
        QCOMPARE(undo->text(), QString("Undo Text Action"));

        clickMenuItem(edit, undo);
        QCOMPARE(editor()->string(), QString("1. first"));
        QCOMPARE(redo->text(), QString("Redo Text Action"));
        clickMenuItem(edit, redo);
        QCOMPARE(editor()->string(), QString("1. first\n2. "));
        // The keys reach the same history as the menu, not a second one in the text view.
        QTest::keyClick(editor(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(editor()->string(), QString("1. first"));
        QTest::keyClick(editor(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QTRY_COMPARE(readBytes(m_first + "List.txt"), QByteArray("1. first\n2. "));

        // The history belongs to its entry: after switching, undo cannot carry one entry's
        // text into another.
        typeAtEnd("x");
        clickEntry("Other.txt");
        QCOMPARE(readBytes(m_first + "List.txt"), QByteArray("1. first\n2. x"));
        QVERIFY(!undo->isEnabled());
        undo->trigger();
        QCOMPARE(editor()->string(), QString("Other text"));
        QVERIFY(!entries()->hasUnsavedText());
        QCOMPARE(readBytes(m_first + "Other.txt"), QByteArray("Other text"));
    }

    void previewFollowsEntryStyleAndLanguage()
    {
        writeBytes(m_first + "Day one.txt", "Some *word* here");
        startApp();
        PreviewController *preview = app()->preview();
        const QString standard =
            QString::fromUtf8(readBytes(AppPaths::cssStyleFolder() + "Standard.css"));
        const QString night =
            QString::fromUtf8(readBytes(AppPaths::cssStyleFolder() + "Standard Night.css"));
        QVERIFY(!standard.isEmpty() && !night.isEmpty() && !standard.contains(night));
        const QString base =
            "<base href=\"file://" + QString(m_first).replace(' ', "%20") + "Day%20one/\">";

        clickEntry("Day one.txt");
        QTest::mouseClick(window()->previewModeButton(), Qt::LeftButton);
        QString html = builtPage();
        QVERIFY2(html.contains("<em>word</em>"), qPrintable(html.right(300)));
        QVERIFY(html.contains(standard));
        QVERIFY2(html.contains(base), qPrintable(html.left(300)));

        // Another style from the panel's list: the page is rebuilt at once with it.
        CSSStykeController *styles = app()->cssStyles();
        styles->showCSSStyleSelectorHudPanel();
        QVERIFY(QTest::qWaitForWindowExposed(styles));
        QListWidget *table = styles->cssStyleTable();
        const auto found = table->findItems("Standard Night.css", Qt::MatchExactly);
        QCOMPARE(found.size(), 1);
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                          table->visualItemRect(found.first()).center());
        html = builtPage();
        QVERIFY(html.contains(night) && !html.contains(standard));
        QVERIFY(html.contains("<em>word</em>") && html.contains(base));
        styles->hide();

        // A new language takes effect at the next build, from the editor's unsaved text.
        clickMenuItem(window()->markupLanguageMenu(), window()->action("actionMarkupLanguage2"));
        QCOMPARE(preview->lastPageHtml(), html);
        QTest::mouseClick(window()->editModeButton(), Qt::LeftButton);
        typeAtEnd(" and *more*");
        QTest::mouseClick(window()->previewModeButton(), Qt::LeftButton);
        QVERIFY(preview->isShowingPreview());
        html = builtPage();
        QVERIFY2(html.contains("<strong>word</strong>"), qPrintable(html.right(300)));
        QVERIFY(html.contains("<strong>more</strong>") && html.contains(night));
        QCOMPARE(readBytes(m_first + "Day one.txt"), QByteArray("Some *word* here"));

        QTest::mouseClick(window()->editModeButton(), Qt::LeftButton);
        QCOMPARE(window()->contentStack()->currentWidget(), static_cast<QWidget *>(editor()));
    }

    void markupLanguageMenuTicksOneAndDrivesTheFormatMenu()
    {
        writeBytes(m_first + "Alpha.txt", "one word");
        startApp();
        QMenu *languages = window()->markupLanguageMenu();
        auto ticked = [languages] {
            QStringList names;
            for (QAction *action : languages->actions())
                if (action->isChecked())
                    names << action->objectName();
            return names;
        };
        QCOMPARE(ticked(), QStringList{"actionMarkupLanguage1"});
        QCOMPARE(window()->action("actionMarkupLanguage4")->text(), QString("BBCode"));
        clickEntry("Alpha.txt");

        // Picking the ticked item again must leave it ticked.
        for (const int number : {7, 7, 2, 4}) {
            const QString name = QString("actionMarkupLanguage%1").arg(number);
            clickMenuItem(languages, window()->action(name));
            QCOMPARE(defaults().integerForKey("TypographyUseMarkupLanguage"), number);
            QCOMPARE(ticked(), QStringList{name});
        }

        // Bold from the Format menu now writes BBCode into the open entry, and saves.
        editor()->setFocus();
        editor()->setSelectedRange(4, 4);
        clickMenuItem(window()->menu("menuFormat"), window()->action("actionBold"));
        QCOMPARE(editor()->string(), QString("one [b]word[/b]"));
        QTRY_COMPARE(readBytes(m_first + "Alpha.txt"), QByteArray("one [b]word[/b]"));
    }

    void returnToTheWindowPicksUpOutsideChanges()
    {
        writeBytes(m_first + "Alpha.txt", "Alpha text here");
        writeBytes(m_first + "Beta.txt", "Beta text");
        startApp();
        clickEntry("Alpha.txt");
        editor()->setSelectedRange(6, 4);
        const QDateTime loadedDate = entries()->document().stamp().modified;

        QEvent leave(QEvent::WindowDeactivate);
        QApplication::sendEvent(window(), &leave);
        writeBytes(m_first + "Alpha.txt", "Alpha *changed* elsewhere");
        backdate(m_first + "Alpha.txt", loadedDate);
        // Sorted above the open entry, so its row moves down.
        writeBytes(m_first + "0-added.txt", "Added elsewhere");

        QEvent back(QEvent::WindowActivate);
        QApplication::sendEvent(window(), &back);
        QCOMPARE(editor()->string(), QString("Alpha *changed* elsewhere"));
        QCOMPARE(editor()->selectedRange(), qMakePair(6, 4));
        QCOMPARE(window()->wordCounter()->text(), QString("3:25"));
        QVERIFY(pageShownInPreview().contains("<em>changed</em>"));
        QCOMPARE(entries()->listofFiles(), QStringList({"0-added.txt", "Alpha.txt", "Beta.txt"}));
        QCOMPARE(entries()->selectedFileName(), QString("Alpha.txt"));
        // The reload is no edit: nothing is waiting to be written back.
        QVERIFY(!entries()->hasUnsavedText());
        QCOMPARE(QFileInfo(m_first + "Alpha.txt").lastModified(), loadedDate.addSecs(-3600));

        // Words typed just before leaving survive a return with no outside change.
        typeAtEnd(" typed");
        app()->windowDidResignMain();
        app()->windowDidBecomeMain();
        QCOMPARE(editor()->string(), QString("Alpha *changed* elsewhere typed"));
        QTRY_COMPARE(readBytes(m_first + "Alpha.txt"),
                     QByteArray("Alpha *changed* elsewhere typed"));
    }

    void anEntryDeletedWhileAwayIsNotWrittenBack()
    {
        writeBytes(m_first + "Alpha.txt", "Alpha text");
        writeBytes(m_first + "Beta.txt", "Beta text");
        startApp();
        clickEntry("Alpha.txt");
        typeAtEnd(" typed");

        // Leaving saved the words, so what another program (a sync client, a file manager)
        // does meanwhile is done to the whole entry.
        QEvent leave(QEvent::WindowDeactivate);
        QApplication::sendEvent(window(), &leave);
        QCOMPARE(readBytes(m_first + "Alpha.txt"), QByteArray("Alpha text typed"));
        QVERIFY(QFile::remove(m_first + "Alpha.txt"));

        QEvent back(QEvent::WindowActivate);
        QApplication::sendEvent(window(), &back);
        QCOMPARE(entries()->listofFiles(), QStringList{"Beta.txt"});
        QVERIFY(!entries()->hasUnsavedText());
        QCOMPARE(filesIn(m_first), QStringList{"Beta.txt"});
        QCOMPARE(readBytes(m_first + "Beta.txt"), QByteArray("Beta text"));
    }

    void newEntryStartsAtTheAddButton()
    {
        writeBytes(m_first + "Alpha.txt", "Alpha text");
        startApp();
        clickEntry("Alpha.txt");

        QTest::mouseClick(window()->addEntryButton(), Qt::LeftButton);
        expectEditorShowsHint();
        // Without a title there is nowhere to write: keys change nothing.
        QTest::keyClicks(editor(), "lost");
        expectEditorShowsHint();

        QTest::keyClicks(window()->titleField(), "Fresh idea");
        // A title alone makes no file, not even when the window closes.
        window()->close();
        QCOMPARE(filesIn(m_first), QStringList{"Alpha.txt"});
        window()->show();
        QVERIFY(editor()->isEditable());
        QCOMPARE(editor()->string(), QString()); // not the hint

        // A burst of keys is written once, when the typing pauses.
        QSignalSpy saved(entries(), &EntryController::entrySaved);
        typeAtEnd("first *words*");
        QVERIFY(!QFile::exists(m_first + "Fresh idea.txt"));
        QTRY_COMPARE(readBytes(m_first + "Fresh idea.txt"), QByteArray("first *words*"));
        QCOMPARE(saved.count(), 1);
        QCOMPARE(readBytes(m_first + "Alpha.txt"), QByteArray("Alpha text"));
        QTRY_COMPARE(entryList()->model()->rowCount(), 2);
        QCOMPARE(window()->titleField()->text(), QString("Fresh idea"));

        // The entry being written is previewed with its own base, selected or not.
        QTest::mouseClick(window()->previewModeButton(), Qt::LeftButton);
        const QString html = builtPage();
        QVERIFY2(html.contains("<em>words</em>"), qPrintable(html.right(200)));
        QVERIFY(html.contains("Journal%20Notes/Fresh%20idea/\">"));
    }

    void aTitleNamingAnEntryOpensItInsteadOfWritingOverIt()
    {
        writeBytes(m_first + "Alpha.txt", "Alpha text");
        writeBytes(m_first + "Beta.txt", "Beta text");
        startApp();
        QLineEdit *title = window()->titleField();

        // A new entry given an existing title: the entry opens and keeps its words.
        QTest::mouseClick(window()->addEntryButton(), Qt::LeftButton);
        QTest::keyClicks(title, "Alpha");
        QCOMPARE(editor()->string(), QString("Alpha text"));
        QCOMPARE(entries()->selectedFileName(), QString("Alpha.txt"));

        // Typing on past that title starts the new entry empty, not as a copy.
        QTest::keyClicks(title, "2");
        QCOMPARE(editor()->string(), QString());
        typeAtEnd("new");
        QTRY_COMPARE(readBytes(m_first + "Alpha2.txt"), QByteArray("new"));
        QCOMPARE(readBytes(m_first + "Alpha.txt"), QByteArray("Alpha text"));

        // Retitling an open entry to another entry's name: the edits stay where they were
        // made and the named entry opens untouched.
        clickEntry("Beta.txt");
        typeAtEnd(" edited");
        title->setFocus();
        title->selectAll();
        QTest::keyClicks(title, "Alpha");
        QCOMPARE(readBytes(m_first + "Beta.txt"), QByteArray("Beta text edited"));
        QCOMPARE(editor()->string(), QString("Alpha text"));
        QVERIFY(!entries()->hasUnsavedText());
        QCOMPARE(filesIn(m_first), QStringList({"Alpha.txt", "Alpha2.txt", "Beta.txt"}));
    }
};

VELLOX_TEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
