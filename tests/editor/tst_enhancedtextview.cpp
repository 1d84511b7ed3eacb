#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/PropertyList.h"
#include "core/UserDefaults.h"
#include "editor/TabActionStore.h"
#include "editor/TextEditorModel.h"
#include "editor/widgets/EditorCommands.h"
#include "editor/widgets/Vellox_EnhancedTextView.h"
#include "support/TestHome.h"

#include <QAction>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QMenu>
#include <QtTest>

#include <memory>

// The real editor widget, offscreen, driven by key events as a user would.
class TestEnhancedTextView : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<UserDefaults> defaults;
    std::unique_ptr<Vellox_EnhancedTextView> view;
    int notices = 0;

    void press(Qt::Key key, Qt::KeyboardModifiers mods = Qt::NoModifier)
    {
        QTest::keyClick(view.get(), key, mods);
    }

private Q_SLOTS:
    void init()
    {
        TestHome::instance()->reset();
        defaults = std::make_unique<UserDefaults>(TestHome::instance()->path() + "/view.conf");
        defaults->registerDefaults(UserDefaults::defaultsTable());
        view = std::make_unique<Vellox_EnhancedTextView>(*defaults);
        view->resize(500, 300);
        view->show();
        view->setFocus();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        notices = 0;
        NotificationCenter::defaultCenter().addObserver(
            view.get(), Notifications::TextChangedShouldBeSaved, [this](const Notification &n) {
                // Only notices naming this editor count; the saving side ignores others.
                if (n.sender() == view.get())
                    ++notices;
            });
    }
    void cleanup()
    {
        view.reset();
        defaults.reset();
        QFile::remove(TestHome::instance()->path() + "/view.conf");
    }

    void listsContinueAndEndAsTyped()
    {
        QTest::keyClicks(view.get(), "- item");
        press(Qt::Key_Return);
        press(Qt::Key_Return);
        QCOMPARE(view->string(), QString("- item\n\n"));
        QCOMPARE(view->selectedRange(), (QPair<int, int>(8, 0)));
        QTest::keyClicks(view.get(), "9. x");
        press(Qt::Key_Enter);
        QTest::keyClicks(view.get(), "y");
        QCOMPARE(view->string(), QString("- item\n\n9. x\n10. y"));

        QAction *undo = view->createUndoAction(view.get());
        QAction *redo = view->createRedoAction(view.get());
        QCOMPARE(undo->text(), QString("Undo Typing"));
        undo->trigger();
        QCOMPARE(undo->text(), QString("Undo Text Action"));
        QCOMPARE(redo->text(), QString("Redo Typing"));
    }

    void markupFollowsTheChosenLanguage()
    {
        view->setString("x");
        view->setSelectedRange(0, 1);
        view->insertBoldTypeStyle();
        QCOMPARE(view->string(), QString("**x**"));
        defaults->setValue(Settings::TypographyUseMarkupLanguage, 3);
        view->setSelectedRange(2, 1);
        view->insertBoldTypeStyle();
        QCOMPARE(view->string(), QString("**'''x'''**"));
        QCOMPARE(view->undoActionName(), QString("Insert Markup"));
        QVERIFY(!view->accessibleName().isEmpty());
        QVERIFY(!view->toolTip().isEmpty());
    }

    void tabIndentsAndBacktabOutdents()
    {
        view->setString("a\nb");
        view->setSelectedRange(0, 3);
        press(Qt::Key_Tab);
        QCOMPARE(view->string(), QString("\ta\n\tb"));
        QCOMPARE(view->selectedRange(), (QPair<int, int>(0, 5)));
        QCOMPARE(view->undoActionName(), QString("Indentation Change"));
        press(Qt::Key_Backtab);
        QCOMPARE(view->string(), QString("a\nb"));
        // The undo keys walk the history, selection included.
        press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(view->string(), QString("\ta\n\tb"));
        QCOMPARE(view->selectedRange(), (QPair<int, int>(0, 5)));
        press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(view->string(), QString("a\nb"));
    }

    void abbreviationExpandsFromTheTabActionFile()
    {
        QVERIFY(PropertyList::write(TabActionStore::internalPath(),
                                    QVariantMap{{"addr", "Street {*}\nTown"}}));
        QTest::keyClicks(view.get(), "to addr");
        press(Qt::Key_Tab);
        QCOMPARE(view->string(), QString("to Street {* MarkPoint *}\nTown"));
        QCOMPARE(view->textCursor().selectedText(), QString("{* MarkPoint *}"));
        QTest::keyClicks(view.get(), "9");
        QCOMPARE(view->string(), QString("to Street 9\nTown"));
        view->undo();
        QCOMPARE(view->undoActionName(), QString("Tab Action"));
        view->undo();
        QCOMPARE(view->string(), QString("to addr"));
        QCOMPARE(view->selectedRange(), (QPair<int, int>(7, 0)));
        // A word that is no abbreviation lets the tab through.
        QTest::keyClicks(view.get(), "s");
        press(Qt::Key_Tab);
        QCOMPARE(view->string(), QString("to addrs\t"));
    }

    void bracketsPairAndQuotesFollowTheSettings()
    {
        // Pairing follows the preference from the next key on.
        defaults->setValue(Settings::TypographyAutoPairBraces, 1);
        QTest::keyClicks(view.get(), "f(");
        QCOMPARE(view->string(), QString("f()"));
        QCOMPARE(view->selectedRange(), (QPair<int, int>(2, 0)));

        // The quote marks change when the layout is applied.
        defaults->setValue(Settings::TypographyUseQuoteStyle, 3);
        defaults->setValue(Settings::TypographyAutoPairBraces, 0);
        QCOMPARE(view->openTag(), QString("\""));
        NotificationCenter::defaultCenter().post(Notifications::TextViewAttributesChanged);
        QCOMPARE(view->openTag(), QString("\u201C"));
        view->setString("");
        QTest::keyClicks(view.get(), "say \"hi\" ok");
        QCOMPARE(view->string(), QString("say \u201Chi\u201D ok"));
    }

    void moveLeftThroughTheCommandAction()
    {
        EditorCommands commands;
        commands.setTextView(view.get());
        QCOMPARE(commands.lineCommandActions().size(), 15);
        QCOMPARE(commands.markupActions().size(), 8);
        view->setString("aaa bbb ccc");
        view->setSelectedRange(8, 3);
        commands.action(EditorCommands::MoveSelectionLeft)->trigger();
        QCOMPARE(view->string(), QString("aaa ccc bbb"));
        QCOMPARE(view->selectedRange(), (QPair<int, int>(4, 3)));
        QAction *undo = view->createUndoAction(view.get());
        QCOMPARE(undo->text(), QString("Undo Move Down"));
        undo->trigger();
        QCOMPARE(view->string(), QString("aaa bbb ccc"));

        commands.action(EditorCommands::InsertBoldTypeStyle)->trigger();
        QCOMPARE(view->string(), QString("aaa bbb **ccc**"));
        QCOMPARE(view->undoActionName(), QString("Insert Markup"));

        view->setEditable(false);
        QVERIFY(!commands.action(EditorCommands::MoveSelectionUp)->isEnabled());
        QVERIFY(commands.action(EditorCommands::MoveCursorToNextEmptyLine)->isEnabled());
        QTest::keyClicks(view.get(), "zz");
        QCOMPARE(view->string(), QString("aaa bbb **ccc**"));
        QVERIFY(!undo->isEnabled());
    }

    void actionsAreDescribed()
    {
        // Unique keys and descriptions across every menu are checked on the real window.
        EditorCommands commands;
        const auto all =
            commands.lineCommandActions() + commands.markupActions() + commands.cleanUpActions();
        for (QAction *action : all) {
            QVERIFY2(!action->text().isEmpty() && !action->text().startsWith("EDITOR_"),
                     qPrintable(action->objectName()));
            QVERIFY2(!action->toolTip().isEmpty(), qPrintable(action->objectName()));
            QVERIFY(!action->isEnabled()); // no view yet
        }
        QVERIFY(!view->accessibleName().isEmpty());
        QVERIFY(!view->toolTip().isEmpty());
    }

    void changeNoticeComesOnceAfterTyping()
    {
        QTest::keyClicks(view.get(), "abc");
        QCOMPARE(notices, 0);
        QTRY_COMPARE_WITH_TIMEOUT(notices, 1, 1000);
        // Neither the typing nor loading another text brings a second notice.
        view->setString("loaded");
        QTest::qWait(250);
        QCOMPARE(notices, 1);
        QVERIFY(!view->canUndo());
        view->undo();
        QCOMPARE(view->string(), QString("loaded"));
    }

    void pasteAndInputMethodGoThroughTheHistory()
    {
        QGuiApplication::clipboard()->setText("pasted\r\ntext");
        view->paste();
        QCOMPARE(view->string(), QString("pasted\ntext"));
        QCOMPARE(view->undoActionName(), QString("Paste"));

        QInputMethodEvent compose("e", {});
        QApplication::sendEvent(view.get(), &compose);
        QCOMPARE(view->string(), QString("pasted\ntext"));
        QInputMethodEvent commit;
        commit.setCommitString(QString::fromUtf8("é"));
        QApplication::sendEvent(view.get(), &commit);
        QCOMPARE(view->string(), QString::fromUtf8("pasted\ntexté"));
        view->undo();
        view->undo();
        QCOMPARE(view->string(), QString());
    }

    void deletionKeysKeepCharactersWhole()
    {
        view->setString(QString::fromUtf8("a😀b"));
        view->setSelectedRange(3, 0);
        press(Qt::Key_Backspace);
        QCOMPARE(view->string(), QString("ab"));
        press(Qt::Key_Backspace);
        QCOMPARE(view->string(), QString("b"));
        view->undo();
        QCOMPARE(view->string(), QString::fromUtf8("a😀b"));
        view->setSelectedRange(1, 0);
        press(Qt::Key_Delete);
        QCOMPARE(view->string(), QString("ab"));
        view->setSelectedRange(0, 2);
        view->cut();
        QCOMPARE(view->string(), QString());
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("ab"));
        QCOMPARE(view->undoActionName(), QString("Cut"));

        view->setString("one two");
        view->setSelectedRange(7, 0);
        press(Qt::Key_Backspace, Qt::ControlModifier);
        QCOMPARE(view->string(), QString("one "));
        view->undo();
        QCOMPARE(view->string(), QString("one two"));
    }

    void contextMenuLeadsWithTheCleanUps()
    {
        std::unique_ptr<QMenu> menu(view->createStandardContextMenu());
        view->contextMenuTextViewSetup(menu.get());
        view->contextMenuTextViewSetup(menu.get());
        const auto actions = menu->actions();
        QCOMPARE(actions.at(0)->text(), QString("Remove Markup"));
        QCOMPARE(actions.at(1)->text(), QString("Trim Lines"));
        QCOMPARE(actions.at(2)->text() == "Remove Markup", false);

        view->setString("  a  \n\tb");
        view->setSelectedRange(0, 9);
        actions.at(1)->trigger();
        QCOMPARE(view->string(), QString("a\nb"));
        view->undo();
        QCOMPARE(view->string(), QString("  a  \n\tb"));
    }

    void changesOutsideTheHistoryDropIt()
    {
        QTest::keyClicks(view.get(), "abc");
        QVERIFY(view->canUndo());
        QTextCursor cursor(view->document());
        cursor.insertText("zz");
        QVERIFY(!view->canUndo());
        QTRY_VERIFY_WITH_TIMEOUT(notices >= 1, 1000);
    }

    void stringKeepsSpecialSpaces()
    {
        const QString text = QString::fromUtf8("a\u00A0b\u2028c\n😀 שלום");
        view->setString(text);
        QCOMPARE(view->string(), text);
    }
};

VELLOX_TEST_MAIN(TestEnhancedTextView)
#include "tst_enhancedtextview.moc"
