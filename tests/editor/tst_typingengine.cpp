#include "EditorFixture.h"
#include "core/UserDefaults.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QtTest>

class TestTypingEngine : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { TestHome::instance()->reset(); }

    void enterContinuesAndEndsLists_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        addRow("bullet", "- item|", "- item\n- |");
        addRow("bullet on a later line", "x\n* a|", "x\n* a\n* |");
        addRow("empty bullet ends the list", "- item\n- |", "- item\n\n|");
        addRow("decimal", "9. x|", "9. x\n10. |");
        addRow("empty decimal ends", "12. |", "\n|");
        addRow("roman", "iv x|", "iv x\nv |");
        addRow("roman needs a space, so letters", "iv. x|", "iv. x\niw. |");
        addRow("letter Z", "Z. x|", "Z. x\nAA. |");
        addRow("tabs carried", "\t\t- a|", "\t\t- a\n\t\t- |");
        addRow("spaces not carried", "  - a|", "  - a\n- |");
        addRow("indented number: only tabs", "\t2. x|", "\t2. x\n\t|");
        addRow("tabs stay when a list ends", "\t* |", "\t\n|");
        addRow("caret inside the line", "- ab|cd", "- ab\n- |cd");
        addRow("bullet without its space ends too", "a\n-|", "a\n\n|");
        addRow("surrogates kept whole", "- 😀|", "- 😀\n- |");
        addRow("right-to-left text", "- שלום|", "- שלום\n- |");
        addRow("combining marks", "1. e\u0301|", "1. e\u0301\n2. |");
    }
    void enterContinuesAndEndsLists()
    {
        QFETCH(QString, before);
        QFETCH(QString, after);
        StringEditor e(before);
        QVERIFY(!e.type("\n"));
        QCOMPARE(e.marked(), after);
        QCOMPARE(e.model->undoActionKey(), QString("UNDO_TEXT_ACTION"));
        e.model->undo();
        QCOMPARE(e.marked(), before);
        e.model->redo();
        QCOMPARE(e.marked(), after);
    }

    void enterOutsideListsPassesThrough()
    {
        StringEditor e("plain|");
        QVERIFY(e.type("\n"));
        QCOMPARE(e.marked(), QString("plain\n|"));
        QCOMPARE(e.countUpdates, 1);
        QCOMPARE(e.model->undoActionKey(), QString("UNDO_TYPING"));
    }

    // The continuation's undo range adds the replaced selection's length on purpose, so
    // undoing it takes that many units more than were inserted; redo brings them back.
    void enterOverSelectionUndoRangeAddsItsLength()
    {
        StringEditor e("1. ab⟦cd⟧ef");
        QVERIFY(!e.type("\n"));
        QCOMPARE(e.marked(), QString("1. ab\n2. |ef"));
        e.model->undo();
        QCOMPARE(e.model->string(), QString("1. abcd"));
        e.model->redo();
        QCOMPARE(e.model->string(), QString("1. ab\n2. ef"));
    }

    void tabIndentsSelection_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        addRow("two lines", "⟦a\nb⟧", "⟦\ta\n\tb⟧");
        addRow("trailing break gets no tab", "⟦a\nb\n⟧", "⟦\ta\n\tb\n⟧");
        addRow("inside a line", "x⟦yz⟧", "x⟦\tyz⟧");
        addRow("other line breaks become LF", "⟦a\u2028b⟧", "⟦\ta\n\tb⟧");
    }
    void tabIndentsSelection()
    {
        QFETCH(QString, before);
        QFETCH(QString, after);
        StringEditor e(before);
        QVERIFY(!e.type("\t"));
        QCOMPARE(e.marked(), after);
        QCOMPARE(e.model->undoActionKey(), QString("UNDO_INDENTION_CHANGE"));
        e.model->undo();
        QCOMPARE(e.marked(), before);
    }

    void tabExpandsAbbreviations()
    {
        const QVariantMap actions{{"sig", "Best,\n{*} and {*}"},
                                  {"brb", "be right back"},
                                  {"שלום", "peace"},
                                  {"😀x", "smile"}};
        StringEditor e("Hi sig|", actions);
        QVERIFY(!e.type("\t"));
        // Only the first mark becomes the placeholder, and it is selected.
        QCOMPARE(e.marked(), QString("Hi Best,\n⟦{* MarkPoint *}⟧ and {*}"));
        QCOMPARE(e.model->undoActionKey(), QString("UNDO_TAB_ACTION"));
        e.type("you");
        QCOMPARE(e.model->string(), QString("Hi Best,\nyou and {*}"));
        e.model->undo();
        e.model->undo();
        QCOMPARE(e.model->string(), QString("Hi sig"));

        StringEditor plain("x\nbrb|", actions);
        QVERIFY(!plain.type("\t"));
        QCOMPARE(plain.marked(), QString("x\nbe right back|"));

        StringEditor rtl("שלום|", actions);
        rtl.type("\t");
        QCOMPARE(rtl.marked(), QString("peace|"));
        StringEditor emoji("a 😀x|", actions);
        emoji.type("\t");
        QCOMPARE(emoji.marked(), QString("a smile|"));
    }

    void tabWithoutAbbreviationInsertsTab()
    {
        const QVariantMap actions{{"sig", "S"}};
        for (const QString before : {"xyz|", "SIG|", "a |", "|", "xsig|"}) {
            StringEditor e(before, actions);
            QVERIFY2(e.type("\t"), qPrintable(before));
            QCOMPARE(e.model->string(), Marked::parse(before).text + "\t");
        }
    }

    void bracketPairing_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("after");
        addRow("before a character: no pair", "|x", "(", "(|x");
        addRow("at the end", "abc|", "(", "abc(|)");
        addRow("before a blank", "x| y", "[", "x[|] y");
        addRow("angle", "|", "<", "<|>");
        addRow("brace", "a\n|\nb", "{", "a\n{|}\nb");
        addRow("wraps a selection", "⟦abc⟧", "(", "(abc)|");
        addRow("wraps in tags", "x ⟦b⟧ y", "<", "x <b>| y");
        addRow("blank-first selection is replaced", "⟦ abc⟧", "(", "(|)");
        addRow("other characters replace", "⟦abc⟧", ")", ")|");
        addRow("quote at start", "|", "\"", "\"|\"");
        addRow("quote after a letter", "a|", "\"", "a\"|");
    }
    void bracketPairing()
    {
        QFETCH(QString, before);
        QFETCH(QString, typed);
        QFETCH(QString, after);
        UserDefaults::standard().setBool("TypographyAutoPairBraces", true);
        StringEditor e(before);
        e.type(typed);
        QCOMPARE(e.marked(), after);
        e.model->undo();
        QCOMPARE(e.model->string(), Marked::parse(before).text);
    }

    void noPairingWhenOff()
    {
        StringEditor e("abc|");
        QVERIFY(e.type("("));
        QCOMPARE(e.marked(), QString("abc(|"));
    }

    void typographicQuotes_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        addRow("after a space opens", 3, "a |", "a \u201C|");
        addRow("after a letter closes", 3, "a|", "a\u201D|");
        addRow("after a closing mark opens", 3, "\u201D|", "\u201D\u201C|");
        addRow("empty text opens", 3, "|", "\u201C|");
        addRow("start of text opens", 3, "|abc", "\u201C|abc");
        addRow("after a line break opens", 3, "a\n|", "a\n\u201C|");
        addRow("German", 1, "x |", "x \u201E|");
        addRow("style 5 is reversed", 5, "x|", "x\u201C|");
        addRow("style 9 opens with two units", 9, "x |", "x \u00AB\u2005|");
        addRow("style 9 closes with two units", 9, "x|", "x\u2005\u00BB|");
        addRow("corner brackets", 10, "|", "\u300C|");
        addRow("plain style passes", 0, "a|", "a\"|");
        addRow("out of range is plain", 11, "a|", "a\"|");
        addRow("negative is plain", -1, "a|", "a\"|");
    }
    void typographicQuotes()
    {
        QFETCH(int, style);
        QFETCH(QString, before);
        QFETCH(QString, after);
        StringEditor e(before);
        e.model->engine().applyQuoteStyle(style);
        e.type("\"");
        QCOMPARE(e.marked(), after);
    }

    void quotePairsAndWrapsWithTypographicMarks()
    {
        UserDefaults::standard().setBool("TypographyAutoPairBraces", true);
        StringEditor pair("a |");
        pair.model->engine().applyQuoteStyle(3);
        pair.type("\"");
        QCOMPARE(pair.marked(), QString("a \u201C|\u201D"));

        StringEditor wrap("⟦word⟧");
        wrap.model->engine().applyQuoteStyle(7);
        wrap.type("\"");
        QCOMPARE(wrap.model->string(), QString("\u00ABword\u00BB"));
        wrap.model->undo();
        QCOMPARE(wrap.model->string(), QString("word"));
    }

    void gateLetsLongTextAndLettersThrough()
    {
        UserDefaults::standard().setBool("TypographyAutoPairBraces", true);
        const QVariantMap actions{{"x", "expanded"}};
        StringEditor e("- x|", actions);
        e.model->engine().applyQuoteStyle(3);
        for (const QString text : {"\n\n", "\t\t", "((", "\"\"", "😀", "a", "\u05D0"})
            QVERIFY2(e.type(text), qPrintable(text));
        QCOMPARE(e.model->string(), QString("- x\n\n\t\t((\"\"😀a\u05D0"));
        // A combining mark on its own is no letter, yet passes every rule unchanged.
        QVERIFY(e.type("\u0301"));
        QVERIFY(e.model->string().endsWith("\u05D0\u0301"));
    }

    void deletionPassesUnchanged()
    {
        UserDefaults::standard().setBool("TypographyAutoPairBraces", true);
        StringEditor e("- |");
        e.backspace();
        QCOMPARE(e.marked(), QString("-|"));
        StringEditor sel("⟦abc⟧ d");
        sel.backspace();
        QCOMPARE(sel.marked(), QString("| d"));
    }

    void everyCallSchedulesTheChangeNotice()
    {
        StringEditor e("- a|");
        e.type("b");
        QCOMPARE(e.notices, 1);
        e.type("\n"); // refused in favour of the continuation, still noticed
        QVERIFY(e.notices >= 2);
        const int before = e.notices;
        e.model->undo();
        QVERIFY(e.notices > before);
        QCOMPARE(e.countUpdates, 0);
        e.type(" ");
        QCOMPARE(e.countUpdates, 1);
    }

    void typingIsOneStepBetweenEngineSteps()
    {
        StringEditor e("|");
        e.typeEach("- ab");
        QCOMPARE(e.model->history().undoCount(), 2); // "- " and "ab"
        e.type("\n");
        e.typeEach("cd");
        e.backspace();
        QCOMPARE(e.model->string(), QString("- ab\n- c"));
        QCOMPARE(e.model->history().undoCount(), 4);
        QCOMPARE(e.model->undoActionKey(), QString("UNDO_TYPING"));
        e.model->undo();
        QCOMPARE(e.marked(), QString("- ab\n- |"));
        QCOMPARE(e.model->undoActionKey(), QString("UNDO_TEXT_ACTION"));
        e.model->undo();
        QCOMPARE(e.marked(), QString("- ab|"));
        e.model->undo();
        QCOMPARE(e.marked(), QString("- |"));
        e.model->undo();
        QCOMPARE(e.marked(), QString("|"));
        QVERIFY(!e.model->canUndo());
        for (int i = 0; i < 4; ++i)
            e.model->redo();
        QCOMPARE(e.marked(), QString("- ab\n- c|"));
        QVERIFY(!e.model->canRedo());
    }

    void typingUndoesWordByWord()
    {
        StringEditor e("|");
        e.typeEach("one two  three");
        e.model->undo();
        QCOMPARE(e.marked(), QString("one two  |"));
        e.model->undo();
        QCOMPARE(e.marked(), QString("one |"));
        e.model->undo();
        QCOMPARE(e.marked(), QString("|"));
    }

    void typingAfterMovingTheCaretStartsANewStep()
    {
        StringEditor e("ab|");
        e.typeEach("cd");
        e.model->setSelectedRange({0, 0});
        e.typeEach("xy");
        QCOMPARE(e.model->string(), QString("xyabcd"));
        e.model->undo();
        QCOMPARE(e.model->string(), QString("abcd"));
        e.model->undo();
        QCOMPARE(e.model->string(), QString("ab"));
    }

    void backspaceRunsMergeAndUndoWhole()
    {
        StringEditor e("hello world|");
        for (int i = 0; i < 5; ++i)
            e.backspace();
        QCOMPARE(e.model->history().undoCount(), 1);
        e.model->undo();
        QCOMPARE(e.marked(), QString("hello world|"));
    }

    void newEditClearsRedo()
    {
        StringEditor e("|");
        e.typeEach("ab");
        e.model->undo();
        QVERIFY(e.model->canRedo());
        e.type("c");
        QVERIFY(!e.model->canRedo());
    }

    void loadingForgetsHistory()
    {
        StringEditor e("|");
        e.typeEach("ab");
        const int notices = e.notices;
        e.model->setString("new entry");
        QVERIFY(!e.model->canUndo());
        QCOMPARE(e.notices, notices);
        QCOMPARE(e.model->string(), QString("new entry"));
    }

    void readOnlyRefusesEdits()
    {
        StringEditor e("ab|");
        e.model->setEditable(false);
        QVERIFY(!e.type("c"));
        QCOMPARE(e.model->string(), QString("ab"));
    }
};

VELLOX_TEST_MAIN(TestTypingEngine)
#include "tst_typingengine.moc"
