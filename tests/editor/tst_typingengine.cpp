#include "EditorFixture.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QtTest>

Q_DECLARE_METATYPE(TypingEngine::Options)

namespace {
const QVariantMap kTabActions{
    {"sig", "Best,\n{*} and {*}"}, {"brb", "be right back"}, {"שלום", "peace"}, {"😀x", "smile"}};
const TypingEngine::Options kPlain{false, 0};
const TypingEngine::Options kPairing{true, 0};

TypingEngine::Options quotes(int style, bool pairing = false)
{
    return {pairing, style};
}
} // namespace

class TestTypingEngine : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { TestHome::instance()->reset(); }

    // What one keystroke turns the text into (undo of each is checked in tst_undo).
    void keystrokes_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<TypingEngine::Options>("options");
        QTest::addColumn<QString>("after");
        addRow("bullet", "- item|", "\n", kPlain, "- item\n- |");
        addRow("bullet on a later line", "x\n* a|", "\n", kPlain, "x\n* a\n* |");
        addRow("empty bullet ends the list", "- item\n- |", "\n", kPlain, "- item\n\n|");
        addRow("decimal", "9. x|", "\n", kPlain, "9. x\n10. |");
        addRow("empty decimal ends", "12. |", "\n", kPlain, "\n|");
        addRow("roman", "iv x|", "\n", kPlain, "iv x\nv |");
        addRow("roman needs a space, so letters", "iv. x|", "\n", kPlain, "iv. x\niw. |");
        addRow("letter Z", "Z. x|", "\n", kPlain, "Z. x\nAA. |");
        addRow("tabs carried", "\t\t- a|", "\n", kPlain, "\t\t- a\n\t\t- |");
        addRow("spaces not carried", "  - a|", "\n", kPlain, "  - a\n- |");
        addRow("indented number: only tabs", "\t2. x|", "\n", kPlain, "\t2. x\n\t|");
        addRow("tabs stay when a list ends", "\t* |", "\n", kPlain, "\t\n|");
        addRow("caret inside the line", "- ab|cd", "\n", kPlain, "- ab\n- |cd");
        addRow("over a selection", "- ab⟦cd⟧ef", "\n", kPlain, "- ab\n- |ef");
        addRow("bullet without its space ends too", "a\n-|", "\n", kPlain, "a\n\n|");
        addRow("surrogates kept whole", "- 😀|", "\n", kPlain, "- 😀\n- |");
        addRow("combining marks", "1. e\u0301|", "\n", kPlain, "1. e\u0301\n2. |");
        addRow("no list: Enter passes", "plain|", "\n", kPlain, "plain\n|");

        addRow("tab indents two lines", "⟦a\nb⟧", "\t", kPlain, "⟦\ta\n\tb⟧");
        addRow("trailing break gets no tab", "⟦a\nb\n⟧", "\t", kPlain, "⟦\ta\n\tb\n⟧");
        addRow("other line breaks become LF", "⟦a\u2028b⟧", "\t", kPlain, "⟦\ta\n\tb⟧");
        addRow("only the first mark is selected", "Hi sig|", "\t", kPlain,
               "Hi Best,\n⟦{* MarkPoint *}⟧ and {*}");
        addRow("expansion after a line break", "x\nbrb|", "\t", kPlain, "x\nbe right back|");
        addRow("right-to-left abbreviation", "שלום|", "\t", kPlain, "peace|");
        addRow("abbreviation with an emoji", "a 😀x|", "\t", kPlain, "a smile|");
        for (const char *word : {"xyz", "SIG", "a ", "", "xsig"})
            addRow(QByteArray("no entry for '" + QByteArray(word) + "'").constData(),
                   QString(word) + "|", "\t", kPlain, QString(word) + "\t|");

        addRow("before a character: no pair", "|x", "(", kPairing, "(|x");
        addRow("pair at the end", "abc|", "(", kPairing, "abc(|)");
        addRow("pair before a blank", "x| y", "[", kPairing, "x[|] y");
        addRow("pair angle", "|", "<", kPairing, "<|>");
        addRow("pair brace", "a\n|\nb", "{", kPairing, "a\n{|}\nb");
        addRow("wraps a selection", "⟦abc⟧", "(", kPairing, "(abc)|");
        addRow("wraps in tags", "x ⟦b⟧ y", "<", kPairing, "x <b>| y");
        addRow("blank-first selection is replaced", "⟦ abc⟧", "(", kPairing, "(|)");
        addRow("other characters replace", "⟦abc⟧", ")", kPairing, ")|");
        addRow("quote pair at start", "|", "\"", kPairing, "\"|\"");
        addRow("quote after a letter", "a|", "\"", kPairing, "a\"|");
        addRow("no pairing when off", "abc|", "(", kPlain, "abc(|");
        addRow("typographic pair", "a |", "\"", quotes(3, true), "a \u201C|\u201D");
        addRow("typographic wrap", "⟦word⟧", "\"", quotes(7, true), "\u00ABword\u00BB|");
        addRow("style 9 pair", "|", "\"", quotes(9, true), "\u00AB\u2005\u2005|\u00BB");

        addRow("after a space opens", "a |", "\"", quotes(3), "a \u201C|");
        addRow("after a letter closes", "a|", "\"", quotes(3), "a\u201D|");
        addRow("after a closing mark opens", "\u201D|", "\"", quotes(3), "\u201D\u201C|");
        addRow("empty text opens", "|", "\"", quotes(3), "\u201C|");
        addRow("start of text opens", "|abc", "\"", quotes(3), "\u201C|abc");
        addRow("after a line break opens", "a\n|", "\"", quotes(3), "a\n\u201C|");
        addRow("German", "x |", "\"", quotes(1), "x \u201E|");
        addRow("style 5 is reversed", "x|", "\"", quotes(5), "x\u201C|");
        addRow("style 9 opens with two units", "x |", "\"", quotes(9), "x \u00AB\u2005|");
        addRow("style 9 closes with two units", "x|", "\"", quotes(9), "x\u2005\u00BB|");
        addRow("corner brackets", "|", "\"", quotes(10), "\u300C|");
        addRow("out of range is plain", "a|", "\"", quotes(11), "a\"|");
        addRow("negative is plain", "a|", "\"", quotes(-1), "a\"|");

        // The gate: two or more units, or a letter, pass every rule unchanged.
        addRow("two line breaks", "- x|", "\n\n", kPairing, "- x\n\n|");
        addRow("two tabs after an abbreviation", "sig|", "\t\t", kPairing, "sig\t\t|");
        addRow("two brackets", "|", "((", kPairing, "((|");
        addRow("two quotes", "|", "\"\"", quotes(3, true), "\"\"|");
        addRow("emoji", "|", "😀", kPairing, "😀|");
        addRow("combining mark", "a|", "\u0301", quotes(3, true), "a\u0301|");
    }
    void keystrokes()
    {
        QFETCH(QString, before);
        QFETCH(QString, typed);
        QFETCH(TypingEngine::Options, options);
        QFETCH(QString, after);
        StringEditor e(before, kTabActions, options);
        e.type(typed);
        QCOMPARE(e.marked(), after);
    }

    void engineEditsAreNamedSteps()
    {
        StringEditor e("- a|", kTabActions);
        QVERIFY(!e.type("\n"));
        QCOMPARE(e.model->undoActionKey(), QString("UNDO_TEXT_ACTION"));
        e.model->setSelectedRange({0, 3});
        QVERIFY(!e.type("\t"));
        QCOMPARE(e.model->undoActionKey(), QString("UNDO_INDENTION_CHANGE"));
        e.model->setSelectedRange({e.model->length(), 0});
        e.type("x brb");
        QVERIFY(!e.type("\t"));
        QCOMPARE(e.model->undoActionKey(), QString("UNDO_TAB_ACTION"));
        QVERIFY(e.type(" "));
        QCOMPARE(e.model->undoActionKey(), QString("UNDO_TYPING"));
    }

    void deletionPassesUnchanged()
    {
        StringEditor e("- |", {}, kPairing);
        e.backspace();
        QCOMPARE(e.marked(), QString("-|"));
        StringEditor sel("⟦abc⟧ d", {}, kPairing);
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

    void typingUndoesWordByWordBetweenEngineSteps()
    {
        StringEditor e("|");
        e.typeEach("- ab");
        QCOMPARE(e.model->history().undoCount(), 2); // "- " and "ab"
        e.type("\n");
        e.typeEach("cd");
        e.backspace();
        QCOMPARE(e.model->history().undoCount(), 4);
        e.model->undo();
        QCOMPARE(e.marked(), QString("- ab\n- |"));
        e.model->undo();
        QCOMPARE(e.marked(), QString("- ab|"));

        StringEditor words("|");
        words.typeEach("one two  three");
        words.model->undo();
        QCOMPARE(words.marked(), QString("one two  |"));
        words.model->undo();
        QCOMPARE(words.marked(), QString("one |"));
    }

    void typingAfterMovingTheCaretStartsANewStep()
    {
        StringEditor e("ab|");
        e.typeEach("cd");
        e.model->setSelectedRange({0, 0});
        e.typeEach("xy");
        e.model->undo();
        QCOMPARE(e.model->string(), QString("abcd"));
        e.model->undo();
        QCOMPARE(e.model->string(), QString("ab"));
    }

    void backspaceRunsMergeAndNewEditsClearRedo()
    {
        StringEditor e("hello world|");
        for (int i = 0; i < 5; ++i)
            e.backspace();
        QCOMPARE(e.model->history().undoCount(), 1);
        e.model->undo();
        QCOMPARE(e.marked(), QString("hello world|"));
        QVERIFY(e.model->canRedo());
        e.type("c");
        QVERIFY(!e.model->canRedo());
    }

    void loadingForgetsHistoryAndReadOnlyRefuses()
    {
        StringEditor e("|");
        e.typeEach("ab");
        const int notices = e.notices;
        e.model->setString("new entry");
        QVERIFY(!e.model->canUndo());
        QCOMPARE(e.notices, notices);
        e.model->setEditable(false);
        QVERIFY(!e.type("c"));
        QCOMPARE(e.model->string(), QString("new entry"));
    }
};

VELLOX_TEST_MAIN(TestTypingEngine)
#include "tst_typingengine.moc"
