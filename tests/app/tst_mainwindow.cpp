#include "app/widgets/AppController.h"
#include "app/widgets/MainWindow.h"
#include "core/AppPaths.h"
#include "core/UserDefaults.h"
#include "editor/widgets/EditorCommands.h"
#include "editor/widgets/Vellox_EnhancedTextView.h"
#include "library/NotebookRegistry.h"
#include "library/TextBundle.h"
#include "library/widgets/EntryController.h"
#include "render/MarkupLanguage.h"
#include "render/StyleFolderSeeder.h"
#include "render/widgets/CSSStykeController.h"
#include "render/widgets/PreviewController.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"
#include "widgets/Alert.h"
#include "widgets/NotebookSideBar.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMenu>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QToolButton>
#include <QXmlStreamReader>
#include <QtTest>

#include <memory>

// The whole main window as the application builds it, driven through its widgets: these
// checks cross the entry, editor, preview and style controllers, which their own tests
// cannot.
namespace {

// The English text of an id, as the shipped table has it (not as the running app shows it,
// which is what is being checked).
QString englishText(const QString &table, const QString &id)
{
    QFile file(QStringLiteral(VELLOX_SOURCE_RESOURCES "/translations/") + table);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    QXmlStreamReader xml(&file);
    bool inMessage = false;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("message"))
            inMessage = xml.attributes().value(QLatin1String("id")) == id;
        else if (inMessage && xml.name() == QLatin1String("source"))
            return xml.readElementText();
    }
    return QString();
}

QString styleText(const QString &name)
{
    return QString::fromUtf8(readBytes(AppPaths::cssStyleFolder() + name));
}

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

} // namespace

class TestMainWindow : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_root;
    std::unique_ptr<AppController> m_app;
    QString m_first;  // notebook 0, with its trailing "/"
    QString m_second; // notebook 1
    QList<AlertRequest> m_alerts;

    UserDefaults &defaults() { return UserDefaults::standard(); }
    MainWindow *window() const { return m_app->window(); }
    Vellox_EnhancedTextView *editor() const { return m_app->editor(); }
    EntryController *entries() const { return m_app->entries(); }
    QListView *entryList() const { return window()->entryList(); }

    void startApp()
    {
        // What the delegate's class initialisation does on a first start.
        StyleFolderSeeder::seed(AppPaths::cssStyleFolder(),
                                QStringLiteral(VELLOX_SOURCE_RESOURCES "/styles"));
        m_app = std::make_unique<AppController>(defaults());
        QVERIFY(m_app->awakeFromNib());
        m_app->tickCurrentMarkupLanguage();
        window()->show();
        QVERIFY(QTest::qWaitForWindowExposed(window()));
    }

    void clickEntry(const QString &fileName)
    {
        const int row = int(entries()->listofFiles().indexOf(fileName));
        QVERIFY2(row >= 0, qPrintable(fileName));
        const QRect rect = entryList()->visualRect(entryList()->model()->index(row, 0));
        QVERIFY(!rect.isEmpty());
        QTest::mouseClick(entryList()->viewport(), Qt::LeftButton, {}, rect.center());
        QCOMPARE(entries()->selectedFileName(), fileName);
    }

    // The preview converts off the window's thread and only while shown: the page it shows
    // once the newest text is converted.
    QString builtPage()
    {
        if (!QTest::qWaitFor([this] { return !m_app->preview()->isPending(); }, 30000))
            return QStringLiteral("(the preview was not built)");
        return m_app->preview()->lastPageHtml();
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
        QCOMPARE(editor()->string(), englishText("app_en.ts", "EDITOR_HINT_NO_ENTRY"));
        QCOMPARE(window()->titleField()->text(), QString());
        QCOMPARE(window()->wordCounter()->text(), QString("0:0"));
        // No step of the entry left behind can be undone into the hint.
        QVERIFY(!window()->editMenu()->actions().value(0)->isEnabled());
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
        const QList<QVariantMap> notebooks = {
            {{"DiaryName", "Journal"},
             {"DiaryDocumentPath", QString(m_root->path() + "/Journal Notes")}},
            {{"DiaryName", "Work"}, {"DiaryDocumentPath", QString(m_root->path() + "/Work")}},
        };
        NotebookRegistry(defaults()).store(notebooks);
    }

    void cleanup()
    {
        m_app.reset();
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
        QSignalSpy saved(entries(), &EntryController::entrySaved);

        QString entryFile = m_first + "Alpha.txt";
        QByteArray expected = "Alpha text and more words";
        QStringList firstFiles = {"Alpha.txt", "Beta.txt"};
        if (action.startsWith("new entry")) {
            QTest::mouseClick(window()->addEntryButton(), Qt::LeftButton);
            QTest::keyClicks(window()->titleField(), "Fresh");
            typeAtEnd("and more words");
            entryFile = m_first + "Fresh.txt";
            expected = "and more words";
            firstFiles = QStringList{"Alpha.txt", "Beta.txt", "Fresh.txt"};
        } else {
            clickEntry("Alpha.txt");
            typeAtEnd(" and more words");
        }
        if (announced) {
            QTest::qWait(300);
            QVERIFY(entries()->currentDocumentHasEdits());
        }
        QVERIFY(readBytes(entryFile) != expected); // still only in the editor

        if (action == "notebook pop-up" || action.startsWith("new entry")) {
            QTest::keyClick(window()->notebookPopUp(), Qt::Key_Down);
        } else if (action == "side bar") {
            QTest::mouseClick(window()->sideBar()->button(1), Qt::LeftButton);
        } else if (action == "other entry") {
            clickEntry("Beta.txt");
        } else if (action == "title edit") {
            window()->titleField()->setFocus();
            window()->titleField()->end(false);
            QTest::keyClicks(window()->titleField(), "X");
        } else if (action == "window close") {
            window()->close();
        }
        // At the moment of the switch the words are where they belong.
        QCOMPARE(readBytes(entryFile), expected);

        if (action == "notebook pop-up" || action == "side bar" || action.startsWith("new")) {
            QCOMPARE(m_app->myPersonalSavePath(), m_second);
            QCOMPARE(window()->notebookPopUp()->currentIndex(), 1);
            QCOMPARE(window()->windowTitle(), QString("Work"));
            QCOMPARE(entries()->listofFiles(), QStringList{"Gamma.txt"});
            expectEditorShowsHint();
        } else if (action == "other entry") {
            QCOMPARE(editor()->string(), QString("Beta text"));
            QCOMPARE(window()->titleField()->text(), QString("Beta"));
        } else if (action == "title edit") {
            QCOMPARE(editor()->string(), QString::fromUtf8(expected));
        }

        // Nothing more is written once the pending save's second is over: not into the other
        // notebook, not under another title.
        QTest::qWait(1300);
        QCOMPARE(readBytes(entryFile), expected);
        QCOMPARE(filesIn(m_first), firstFiles);
        QCOMPARE(readBytes(m_first + "Beta.txt"), QByteArray("Beta text"));
        QCOMPARE(filesIn(m_second), QStringList{"Gamma.txt"});
        QCOMPARE(readBytes(m_second + "Gamma.txt"), QByteArray("Gamma text"));
        QCOMPARE(saved.count(), 1); // the flush replaced the pending save, not added to it
    }

    void editMenuUndoesAnEngineStepInOneGo()
    {
        writeBytes(m_first + "List.txt", "1. first");
        writeBytes(m_first + "Other.txt", "Other text");
        startApp();
        QMenu *edit = window()->editMenu();
        QAction *undo = edit->actions().value(0);
        QAction *redo = edit->actions().value(1);
        QVERIFY(undo && redo);

        clickEntry("List.txt");
        QVERIFY(!undo->isEnabled()); // loading an entry is no step of its own
        editor()->setFocus();
        editor()->setSelectedRange(8, 0);
        QTest::keyClick(editor(), Qt::Key_Return);
        QCOMPARE(editor()->string(), QString("1. first\n2. "));

        const QString step = englishText("editor_en.ts", "UNDO_TEXT_ACTION");
        QCOMPARE(step, QString("Text Action"));
        QVERIFY(undo->isEnabled());
        QCOMPARE(undo->text(), englishText("editor_en.ts", "EDITOR_UNDO_NAMED").arg(step));

        clickMenuItem(edit, undo);
        QCOMPARE(editor()->string(), QString("1. first"));
        QCOMPARE(redo->text(), englishText("editor_en.ts", "EDITOR_REDO_NAMED").arg(step));
        clickMenuItem(edit, redo);
        QCOMPARE(editor()->string(), QString("1. first\n2. "));
        // The keys reach the same history as the menu, not a second one in the text view.
        QTest::keyClick(editor(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(editor()->string(), QString("1. first"));
        QTest::keyClick(editor(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(editor()->string(), QString("1. first\n2. "));
        // Undo and redo are edits like any other: they reach the file.
        QTRY_COMPARE_WITH_TIMEOUT(readBytes(m_first + "List.txt"), QByteArray("1. first\n2. "),
                                  3000);

        // The history belongs to the entry it was made in: after switching, undo cannot put
        // one entry's text into another.
        typeAtEnd("x");
        clickEntry("Other.txt");
        QCOMPARE(readBytes(m_first + "List.txt"), QByteArray("1. first\n2. x"));
        QVERIFY(!undo->isEnabled());
        undo->trigger();
        QCOMPARE(editor()->string(), QString("Other text"));
        QTest::qWait(1300);
        QCOMPARE(readBytes(m_first + "Other.txt"), QByteArray("Other text"));
        QCOMPARE(readBytes(m_first + "List.txt"), QByteArray("1. first\n2. x"));
    }

    void previewFollowsEntryStyleAndLanguage()
    {
        writeBytes(m_first + "Day one.txt", "Some *word* here");
        startApp();
        PreviewController *preview = m_app->preview();
        CSSStykeController *styles = m_app->cssStyles();
        QCOMPARE(defaults().stringForKey("SelectedCSSStyle"), QString("Standard.css"));
        const QString standard = styleText("Standard.css");
        const QString night = styleText("Standard Night.css");
        QVERIFY(!standard.isEmpty() && !night.isEmpty() && !standard.contains(night));
        const QString base =
            "<base href=\"file://" + QString(m_first).replace(' ', "%20") + "Day%20one/\">";

        clickEntry("Day one.txt");
        QTest::mouseClick(window()->previewModeButton(), Qt::LeftButton);
        QString html = builtPage();
        QVERIFY2(html.contains("<em>word</em>"), qPrintable(html.right(300)));
        QVERIFY(html.contains("<style type=\"text/css\"><!--" + standard + "--></style>"));
        QVERIFY2(html.contains(base), qPrintable(html.left(300)));

        // Another style from the panel's list: the page is rebuilt at once with it.
        styles->showCSSStyleSelectorHudPanel();
        QVERIFY(QTest::qWaitForWindowExposed(styles));
        QListWidget *table = styles->cssStyleTable();
        const QList<QListWidgetItem *> found =
            table->findItems("Standard Night.css", Qt::MatchExactly);
        QCOMPARE(found.size(), 1);
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                          table->visualItemRect(found.first()).center());
        QCOMPARE(defaults().stringForKey("SelectedCSSStyle"), QString("Standard Night.css"));
        html = builtPage();
        QVERIFY(html.contains(night));
        QVERIFY(!html.contains(standard));
        QVERIFY(html.contains("<em>word</em>"));
        QVERIFY(html.contains(base));
        styles->hide();

        // A new language takes effect at the next build, from the editor's unsaved text.
        clickMenuItem(window()->markupLanguageMenu(), window()->markupLanguageAction(902));
        QCOMPARE(preview->lastPageHtml(), html);
        QTest::mouseClick(window()->editModeButton(), Qt::LeftButton);
        typeAtEnd(" and *more*");
        QTest::mouseClick(window()->previewModeButton(), Qt::LeftButton);
        QVERIFY(preview->isShowingPreview());
        html = builtPage();
        QVERIFY2(html.contains("<strong>word</strong>"), qPrintable(html.right(300)));
        QVERIFY(html.contains("<strong>more</strong>"));
        QVERIFY(html.contains(night));
        QVERIFY(html.contains(base));
        QCOMPARE(readBytes(m_first + "Day one.txt"), QByteArray("Some *word* here"));

        QTest::mouseClick(window()->editModeButton(), Qt::LeftButton);
        QVERIFY(!preview->isShowingPreview());
        QCOMPARE(window()->contentStack()->currentWidget(), static_cast<QWidget *>(editor()));
    }

    void markupLanguageMenuStoresTicksAndDrivesTheFormatMenu()
    {
        defaults().setInteger("TypographyUseMarkupLanguage", 5);
        writeBytes(m_first + "Alpha.txt", "one word");
        startApp();
        auto checkedTags = [this] {
            QList<int> tags;
            for (QAction *action : window()->markupLanguageMenu()->actions()) {
                if (action->isChecked())
                    tags << action->data().toInt();
            }
            return tags;
        };
        QCOMPARE(checkedTags(), QList<int>{905});
        QCOMPARE(window()->markupLanguageAction(904)->text(), QString("BBCode"));
        clickEntry("Alpha.txt");

        // Picking the ticked item again must leave it ticked.
        for (const int number : {7, 7, 2, 1, 4}) {
            const int tag = MarkupLanguage::menuTag(number);
            clickMenuItem(window()->markupLanguageMenu(), window()->markupLanguageAction(tag));
            QCOMPARE(defaults().integerForKey("TypographyUseMarkupLanguage"), number);
            for (int other = 1; other <= MarkupLanguage::Count; ++other) {
                const QString key = MarkupLanguage::selectionKeys().at(other - 1);
                if (other == number)
                    QCOMPARE(defaults().stringForKey(key), QString("selected"));
                else
                    QVERIFY2(!defaults().boolForKey(key) &&
                                 defaults().objectForKey(key).typeId() != QMetaType::QString,
                             qPrintable(key));
            }
            QCOMPARE(checkedTags(), QList<int>{tag});
        }

        // The open entry's Format menu bold now writes the chosen language's markup, and saves.
        editor()->setFocus();
        editor()->setSelectedRange(4, 4);
        QAction *bold = m_app->editorCommands()->action(EditorCommands::InsertBoldTypeStyle);
        QVERIFY(window()->formatMenu()->actions().contains(bold));
        clickMenuItem(window()->formatMenu(), bold);
        QCOMPARE(editor()->string(), QString("one [b]word[/b]"));
        QTRY_COMPARE_WITH_TIMEOUT(readBytes(m_first + "Alpha.txt"), QByteArray("one [b]word[/b]"),
                                  3000);

        // The next launch ticks the stored choice.
        defaults().setInteger("TypographyUseMarkupLanguage", 3);
        m_app.reset();
        startApp();
        QCOMPARE(checkedTags(), QList<int>{903});
    }

    void returnToTheWindowPicksUpOutsideChanges()
    {
        writeBytes(m_first + "Alpha.txt", "Alpha text here");
        writeBytes(m_first + "Beta.txt", "Beta text");
        startApp();
        clickEntry("Alpha.txt");
        editor()->setSelectedRange(6, 4);
        const QDateTime loadedDate = entries()->lastModificationDateOfCurrentFile();

        QEvent leave(QEvent::WindowDeactivate);
        QApplication::sendEvent(window(), &leave);
        QVERIFY(entries()->checkForFolderModificaion());
        QTest::qWait(30); // file-system clocks tick in milliseconds
        writeBytes(m_first + "Alpha.txt", "Alpha *changed* elsewhere");
        QFile alpha(m_first + "Alpha.txt");
        QVERIFY(alpha.open(QIODevice::ReadWrite));
        QVERIFY(alpha.setFileTime(loadedDate.addSecs(-3600), QFileDevice::FileModificationTime));
        alpha.close();
        // Sorted above the open entry, so its row moves down.
        writeBytes(m_first + "0-added.txt", "Added elsewhere");

        QEvent back(QEvent::WindowActivate);
        QApplication::sendEvent(window(), &back);
        QCOMPARE(editor()->string(), QString("Alpha *changed* elsewhere"));
        QCOMPARE(m_app->loadedString(), QString("Alpha *changed* elsewhere"));
        QCOMPARE(editor()->selectedRange(), qMakePair(6, 4));
        QCOMPARE(window()->wordCounter()->text(), QString("3:25"));
        QVERIFY(pageShownInPreview().contains("<em>changed</em>"));
        QCOMPARE(entries()->listofFiles(), QStringList({"0-added.txt", "Alpha.txt", "Beta.txt"}));
        QCOMPARE(entries()->selectedFileName(), QString("Alpha.txt"));
        QCOMPARE(window()->titleField()->text(), QString("Alpha"));
        QVERIFY(!entries()->checkForFolderModificaion());

        // The reload is no edit: nothing is written back, and a second return changes nothing.
        QTest::qWait(1300);
        QCOMPARE(readBytes(m_first + "Alpha.txt"), QByteArray("Alpha *changed* elsewhere"));
        QCOMPARE(QFileInfo(m_first + "Alpha.txt").lastModified(), loadedDate.addSecs(-3600));
        QVERIFY(!entries()->currentDocumentHasEdits());

        // Words typed just before leaving survive a return with no outside change.
        typeAtEnd(" typed");
        m_app->windowDidResignMain();
        m_app->windowDidBecomeMain();
        QCOMPARE(editor()->string(), QString("Alpha *changed* elsewhere typed"));
        QTRY_COMPARE_WITH_TIMEOUT(readBytes(m_first + "Alpha.txt"),
                                  QByteArray("Alpha *changed* elsewhere typed"), 3000);
    }

    void newEntryStartsAtTheAddButton()
    {
        writeBytes(m_first + "Alpha.txt", "Alpha text");
        startApp();
        clickEntry("Alpha.txt");

        QTest::mouseClick(window()->addEntryButton(), Qt::LeftButton);
        expectEditorShowsHint();
        QCOMPARE(entries()->selectedRow(), -1);
        // Without a title there is nowhere to write: keys change nothing.
        QTest::keyClicks(editor(), "lost");
        expectEditorShowsHint();

        QTest::keyClicks(window()->titleField(), "Fresh idea");
        // A title alone makes no file, not even when the window closes.
        window()->close();
        QTest::qWait(300);
        QCOMPARE(filesIn(m_first), QStringList{"Alpha.txt"});
        window()->show();
        QVERIFY(editor()->isEditable());
        QCOMPARE(editor()->string(), QString()); // not the hint
        QCOMPARE(window()->wordCounter()->text(), QString("0:0"));

        QSignalSpy saved(entries(), &EntryController::entrySaved);
        typeAtEnd("first words");
        QCOMPARE(saved.count(), 0);
        QVERIFY(!QFile::exists(m_first + "Fresh idea.txt"));
        QTRY_COMPARE_WITH_TIMEOUT(saved.count(), 1, 3000);
        QCOMPARE(readBytes(m_first + "Fresh idea.txt"), QByteArray("first words"));
        QCOMPARE(readBytes(m_first + "Alpha.txt"), QByteArray("Alpha text"));
        QVERIFY(entries()->listofFiles().contains("Fresh idea.txt"));
        QCOMPARE(entryList()->model()->rowCount(), 2);
        QCOMPARE(window()->titleField()->text(), QString("Fresh idea"));
        QCOMPARE(editor()->string(), QString("first words"));
        QVERIFY(editor()->isEditable());

        // Writing on goes into the same file.
        typeAtEnd(" and more");
        QTRY_COMPARE_WITH_TIMEOUT(readBytes(m_first + "Fresh idea.txt"),
                                  QByteArray("first words and more"), 3000);
        QCOMPARE(filesIn(m_first), QStringList({"Alpha.txt", "Fresh idea.txt"}));
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
        QCOMPARE(title->text(), QString("Alpha"));
        typeAtEnd(" more");
        QTRY_COMPARE_WITH_TIMEOUT(readBytes(m_first + "Alpha.txt"), QByteArray("Alpha text more"),
                                  3000);

        // Typing on past that title starts the new entry empty, not as a copy.
        QTest::mouseClick(window()->addEntryButton(), Qt::LeftButton);
        QTest::keyClicks(title, "Alpha2");
        QCOMPARE(editor()->string(), QString());
        QVERIFY(editor()->isEditable());
        QCOMPARE(entries()->selectedRow(), -1);
        typeAtEnd("new");
        QTRY_COMPARE_WITH_TIMEOUT(readBytes(m_first + "Alpha2.txt"), QByteArray("new"), 3000);
        QCOMPARE(readBytes(m_first + "Alpha.txt"), QByteArray("Alpha text more"));

        // Retitling an open entry to another entry's name: the edits stay where they were
        // made and the named entry opens untouched.
        clickEntry("Beta.txt");
        typeAtEnd(" edited");
        title->setFocus();
        title->selectAll();
        QTest::keyClicks(title, "Alpha");
        QCOMPARE(readBytes(m_first + "Beta.txt"), QByteArray("Beta text edited"));
        QCOMPARE(editor()->string(), QString("Alpha text more"));
        QTest::qWait(1300);
        QCOMPARE(readBytes(m_first + "Alpha.txt"), QByteArray("Alpha text more"));
        QCOMPARE(filesIn(m_first), QStringList({"Alpha.txt", "Alpha2.txt", "Beta.txt"}));
    }

    void theFirstEntryOfAnEmptyNotebookIsPreviewed()
    {
        startApp();
        QTest::mouseClick(window()->addEntryButton(), Qt::LeftButton);
        QTest::keyClicks(window()->titleField(), "Solo");
        typeAtEnd("Some *word*");
        QTRY_COMPARE_WITH_TIMEOUT(readBytes(m_first + "Solo.txt"), QByteArray("Some *word*"), 3000);
        QCOMPARE(entries()->listofFiles(), QStringList{"Solo.txt"});

        // The only entry sits at the top, where a relist never selects by name; the preview
        // still shows the entry being written, with its own base.
        typeAtEnd(" and *more*");
        QTest::mouseClick(window()->previewModeButton(), Qt::LeftButton);
        const QString html = builtPage();
        QVERIFY2(html.contains("<em>more</em>"), qPrintable(html.right(200)));
        QVERIFY(html.contains("Journal%20Notes/Solo/\">"));
    }

    void anOutsideChangeAfterLeavingIsNotWrittenOver_data()
    {
        QTest::addColumn<bool>("deleted");
        addRow("changed elsewhere", false);
        addRow("deleted elsewhere", true);
    }

    void anOutsideChangeAfterLeavingIsNotWrittenOver()
    {
        QFETCH(bool, deleted);
        writeBytes(m_first + "Alpha.txt", "Alpha text");
        writeBytes(m_first + "Beta.txt", "Beta text");
        startApp();
        clickEntry("Alpha.txt");
        typeAtEnd(" typed");

        // Leaving saved the words, so what another program (a sync client, another editor)
        // changes or deletes meanwhile is the whole entry.
        QEvent leave(QEvent::WindowDeactivate);
        QApplication::sendEvent(window(), &leave);
        QCOMPARE(readBytes(m_first + "Alpha.txt"), QByteArray("Alpha text typed"));
        QTest::qWait(30);
        const QByteArray synced = deleted ? QByteArray() : QByteArray("Alpha text typed, synced");
        if (deleted)
            QVERIFY(QFile::remove(m_first + "Alpha.txt"));
        else
            writeBytes(m_first + "Alpha.txt", synced);

        QEvent back(QEvent::WindowActivate);
        QApplication::sendEvent(window(), &back);
        if (deleted)
            QCOMPARE(entries()->listofFiles(), QStringList{"Beta.txt"});
        else
            QCOMPARE(editor()->string(), QString::fromUtf8(synced));
        QTest::qWait(1300);
        QCOMPARE(QFile::exists(m_first + "Alpha.txt"), !deleted);
        QCOMPARE(readBytes(m_first + "Alpha.txt"), synced);
        QCOMPARE(readBytes(m_first + "Beta.txt"), QByteArray("Beta text"));
    }

    void textBundleEntriesThroughTheWindow()
    {
        defaults().setString("defaultFileExtensionForEntries", "textbundle");
        const QString trip = m_first + "Trip.textbundle";
        QDir().mkpath(trip + "/assets");
        writeBytes(trip + "/info.json",
                   TextBundle::infoJson("net.daringfireball.markdown").toUtf8());
        writeBytes(trip + "/text.markdown", "A *trip*");
        startApp();

        // Shown before the entry is picked: the page built on selection is the one checked.
        QTest::mouseClick(window()->previewModeButton(), Qt::LeftButton);
        clickEntry("Trip.textbundle");
        QCOMPARE(editor()->string(), QString("A *trip*"));
        QString html = builtPage();
        QTest::mouseClick(window()->editModeButton(), Qt::LeftButton);
        QVERIFY(html.contains("<em>trip</em>"));
        // Relative links of a bundle resolve inside it.
        QVERIFY2(html.contains("Journal%20Notes/Trip.textbundle//\">"), qPrintable(html.left(300)));

        typeAtEnd(" abroad");
        QTRY_COMPARE_WITH_TIMEOUT(readBytes(trip + "/text.markdown"), QByteArray("A *trip* abroad"),
                                  3000);
        QCOMPARE(filesIn(trip), QStringList({"assets", "info.json", "text.markdown"}));

        // Changed elsewhere while the window was in the background.
        m_app->windowDidResignMain();
        QTest::qWait(30);
        writeBytes(trip + "/text.markdown", "A *trip* home");
        m_app->windowDidBecomeMain();
        QCOMPARE(editor()->string(), QString("A *trip* home"));
        QVERIFY(pageShownInPreview().contains("home"));

        // A new entry becomes a bundle with its layout.
        QTest::mouseClick(window()->addEntryButton(), Qt::LeftButton);
        QTest::keyClicks(window()->titleField(), "Next");
        typeAtEnd("Plans");
        QTRY_COMPARE_WITH_TIMEOUT(readBytes(m_first + "Next.textbundle/text.markdown"),
                                  QByteArray("Plans"), 3000);
        QVERIFY(QFileInfo(m_first + "Next.textbundle/assets").isDir());
        QCOMPARE(readBytes(m_first + "Next.textbundle/info.json"),
                 TextBundle::infoJson("net.daringfireball.markdown").toUtf8());
        QTRY_VERIFY(entries()->listofFiles().contains("Next.textbundle"));
        QCOMPARE(readBytes(trip + "/text.markdown"), QByteArray("A *trip* home"));
    }
};

VELLOX_TEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
