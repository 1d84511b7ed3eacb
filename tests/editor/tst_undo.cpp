// Every kind of edit the editor makes, on a plain string and on the real editor widget's
// document: what it turns the text into, and that one Undo gives back exactly the text (and
// selection) from before it and Redo the text after it. Undo must never lose text.
#include "EditorFixture.h"
#include "core/UserDefaults.h"
#include "editor/LineCommands.h"
#include "editor/MarkupInsertion.h"
#include "editor/widgets/Vellox_EnhancedTextView.h"
#include "support/TestHome.h"

#include <QtTest>

#include <functional>

using Action = std::function<void(TextEditorModel &)>;
Q_DECLARE_METATYPE(Action)
Q_DECLARE_METATYPE(TypingEngine::Options)

namespace {
const QVariantMap kTabActions{
    {"sig", "Best,\n{*} and {*}"}, {"brb", "be right back"}, {"שלום", "peace"}, {"😀x", "smile"}};

Action typed(const QString &text)
{
    return [text](TextEditorModel &m) { m.insertText(text); };
}

Action command(bool (*f)(TextEditorModel &))
{
    return [f](TextEditorModel &m) { f(m); };
}

Action markup(const QString &templateText)
{
    return [templateText](TextEditorModel &m) {
        MarkupInsertion::performMarkupInsertion(m, templateText);
    };
}

const QString kTyping = QStringLiteral("UNDO_TYPING");
const QString kText = QStringLiteral("UNDO_TEXT_ACTION");
const QString kIndent = QStringLiteral("UNDO_INDENTION_CHANGE");
const QString kMarkup = QStringLiteral("UNDO_SET_BOLD");
const TypingEngine::Options kPairing{true, 0};

TypingEngine::Options quotes(int style, bool pairing = false)
{
    return {pairing, style};
}

// after: the expected result with its selection ("" where only the undo is checked); step:
// the name the undo step carries.
void row(const QByteArray &name, const QString &before, const Action &action, const QString &after,
         const QString &step, TypingEngine::Options options = {})
{
    QTest::newRow(name.constData()) << before << action << after << step << options;
}

// One user action on a fresh history: exactly one step, undone and redone exactly.
void checkOneStep(TextEditorModel &m, const Action &action, const QString &expected,
                  const QString &step)
{
    const QString before = marked(m);
    const QString beforeText = m.string();
    action(m);
    const QString after = marked(m);
    if (!expected.isEmpty())
        QCOMPARE(after, expected);
    QVERIFY2(m.string() != beforeText, "the edit changed nothing, so the row tests nothing");
    QCOMPARE(m.history().undoCount(), 1);
    QCOMPARE(m.undoActionKey(), step);
    m.undo();
    QCOMPARE(marked(m), before);
    m.redo();
    QCOMPARE(marked(m), after);
    m.undo();
    QCOMPARE(marked(m), before);
}

// Types script key by key ("\b" is Backspace), then undoes everything and redoes it: every
// text passed on the way must be one the user saw while typing, in reverse order.
void checkSession(TextEditorModel &m, const QString &script)
{
    QStringList states{m.string()};
    for (QChar key : script) {
        if (key == u'\b')
            backspace(m);
        else
            m.insertText(QString(key));
        states << m.string();
    }
    QList<int> reached;
    int last = int(states.size()) - 1;
    while (m.canUndo()) {
        m.undo();
        const int at = int(states.lastIndexOf(m.string(), last - 1));
        QVERIFY2(at >= 0, qPrintable("undo produced a text never typed: " + m.string()));
        reached << at;
        last = at;
    }
    QCOMPARE(m.string(), states.first());
    for (int i = int(reached.size()) - 2; i >= -1; --i) {
        m.redo();
        QCOMPARE(m.string(), states.at(i >= 0 ? reached.at(i) : int(states.size()) - 1));
    }
    QVERIFY(!m.canRedo());
}
} // namespace

class TestUndo : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<UserDefaults> defaults;
    std::unique_ptr<Vellox_EnhancedTextView> view;

    TextEditorModel &widgetModel(const QString &before, TypingEngine::Options options)
    {
        const Marked m = Marked::parse(before);
        view->setString(m.text);
        TextEditorModel &model = view->model();
        model.setSelectedRange(m.selection);
        model.engine().setOptions(options);
        return model;
    }

private Q_SLOTS:
    void initTestCase()
    {
        defaults = std::make_unique<UserDefaults>(TestHome::instance()->path() + "/undo.conf");
        view = std::make_unique<Vellox_EnhancedTextView>(*defaults);
        view->model().setTabActionProvider([] { return kTabActions; });
    }

    void everyEdit_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<Action>("action");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QString>("step");
        QTest::addColumn<TypingEngine::Options>("options");
        const Action enter = typed("\n");
        const Action tab = typed("\t");

        row("letter", "ab|", typed("c"), "abc|", kTyping);
        row("letter over a selection", "a⟦bc⟧d", typed("x"), "ax|d", kTyping);
        row("paste", "a|b", typed("pasted\ntext"), "apasted\ntext|b", kTyping);
        row("backspace", "ab|c", backspace, "a|c", kTyping);
        row("backspace over a selection", "a⟦b\nc⟧d", backspace, "a|d", kTyping);
        row("deleting a bullet's space", "- |", backspace, "-|", kTyping, kPairing);

        row("bullet", "- item|", enter, "- item\n- |", kText);
        row("bullet on a later line", "x\n* a|", enter, "x\n* a\n* |", kText);
        row("plus", "+ a|", enter, "+ a\n+ |", kText);
        row("decimal", "9. x|", enter, "9. x\n10. |", kText);
        row("upper roman", "IV x|", enter, "IV x\nV |", kText);
        row("lower roman", "iv x|", enter, "iv x\nv |", kText);
        row("roman needs a space, so letters", "iv. x|", enter, "iv. x\niw. |", kText);
        row("upper letters", "Z. x|", enter, "Z. x\nAA. |", kText);
        row("lower letters", "az. x|", enter, "az. x\nba. |", kText);
        row("tabs carried", "\t\t- a|", enter, "\t\t- a\n\t\t- |", kText);
        row("spaces not carried", "  - a|", enter, "  - a\n- |", kText);
        row("indented number: only tabs", "\t2. x|", enter, "\t2. x\n\t|", kText);
        row("caret inside the line", "- ab|cd", enter, "- ab\n- |cd", kText);
        row("surrogates kept whole", "- 😀|", enter, "- 😀\n- |", kText);
        row("combining marks", "1. e\u0301|", enter, "1. e\u0301\n2. |", kText);
        for (const char *marker : {"- ", "* ", "9. ", "IV ", "iv ", "Z. ", "az. "}) {
            const QString m = QString::fromLatin1(marker);
            row("over a selection, " + QByteArray(marker), m + "ab⟦cd⟧ef", enter, QString(), kText);
            row("empty item ends, " + QByteArray(marker), "x\n" + m + "|", enter, "x\n\n|", kText);
        }
        row("over a selection across lines", "- a⟦b\nc⟧d", enter, "- a\n- |d", kText);
        row("over a whole list line", "- a\n⟦- b⟧", enter, "- a\n\n|", kTyping);
        row("tabs stay when a list ends", "\t* |", enter, "\t\n|", kText);
        row("bullet without its space ends too", "a\n-|", enter, "a\n\n|", kText);
        row("no list: Enter passes", "plain|", enter, "plain\n|", kTyping);

        row("tab", "abc|", tab, "abc\t|", kTyping);
        row("tab indents lines", "⟦a\nb⟧", tab, "⟦\ta\n\tb⟧", kIndent);
        row("trailing break gets no tab", "⟦a\nb\n⟧", tab, "⟦\ta\n\tb\n⟧", kIndent);
        row("other line breaks become LF", "⟦a\u2028b⟧", tab, "⟦\ta\n\tb⟧", kIndent);
        row("tab inside a line", "x⟦yz⟧", tab, "x⟦\tyz⟧", kIndent);
        row("only the first mark is selected", "Hi sig|", tab,
            "Hi Best,\n⟦{* MarkPoint *}⟧ and {*}", "UNDO_TAB_ACTION");
        row("expansion after a line break", "x\nbrb|", tab, "x\nbe right back|", "UNDO_TAB_ACTION");
        row("right-to-left abbreviation", "שלום|", tab, "peace|", "UNDO_TAB_ACTION");
        row("abbreviation with an emoji", "a 😀x|", tab, "a smile|", "UNDO_TAB_ACTION");
        for (const char *word : {"xyz", "SIG", "a ", "", "xsig"})
            row("no entry for '" + QByteArray(word) + "'", QString(word) + "|", tab,
                QString(word) + "\t|", kTyping);

        row("no pair before a character", "|x", typed("("), "(|x", kTyping, kPairing);
        row("pair at the end", "abc|", typed("("), "abc(|)", kTyping, kPairing);
        row("pair before a blank", "x| y", typed("["), "x[|] y", kTyping, kPairing);
        row("pair angle", "|", typed("<"), "<|>", kTyping, kPairing);
        row("pair brace", "a\n|\nb", typed("{"), "a\n{|}\nb", kTyping, kPairing);
        row("wrap", "⟦abc⟧", typed("("), "(abc)|", kText, kPairing);
        row("wrap in tags", "x ⟦b⟧ y", typed("<"), "x <b>| y", kText, kPairing);
        row("blank-first selection is replaced", "⟦ abc⟧", typed("["), "[|]", kTyping, kPairing);
        row("other characters replace", "⟦abc⟧", typed(")"), ")|", kTyping, kPairing);
        row("over-typing a closing bracket", "(|)", typed(")"), "()|)", kTyping, kPairing);
        row("backspace inside a pair", "(|)", backspace, "|)", kTyping, kPairing);
        row("no pairing when off", "abc|", typed("("), "abc(|", kTyping);
        row("plain quote pair", "|", typed("\""), "\"|\"", kTyping, kPairing);
        row("plain quote after a letter", "a|", typed("\""), "a\"|", kTyping, kPairing);
        row("typographic pair", "a |", typed("\""), "a \u201C|\u201D", kTyping, quotes(3, true));
        row("typographic wrap", "⟦word⟧", typed("\""), "\u00ABword\u00BB|", kText, quotes(7, true));
        row("style 9 pair", "|", typed("\""), "\u00AB\u2005\u2005|\u00BB", kTyping,
            quotes(9, true));
        row("style 9 wrap", "⟦w⟧", typed("\""), "\u00AB\u2005w\u2005\u00BB|", kText,
            quotes(9, true));
        row("after a space opens", "a |", typed("\""), "a \u201C|", kTyping, quotes(3));
        row("after a letter closes", "a|", typed("\""), "a\u201D|", kTyping, quotes(3));
        row("after a closing mark opens", "\u201D|", typed("\""), "\u201D\u201C|", kTyping,
            quotes(3));
        row("empty text opens", "|", typed("\""), "\u201C|", kTyping, quotes(3));
        row("start of text opens", "|abc", typed("\""), "\u201C|abc", kTyping, quotes(3));
        row("after a line break opens", "a\n|", typed("\""), "a\n\u201C|", kTyping, quotes(3));
        row("German", "x |", typed("\""), "x \u201E|", kTyping, quotes(1));
        row("style 5 is reversed", "x|", typed("\""), "x\u201C|", kTyping, quotes(5));
        row("style 9 opens with two units", "x |", typed("\""), "x \u00AB\u2005|", kTyping,
            quotes(9));
        row("style 9 closes with two units", "x|", typed("\""), "x\u2005\u00BB|", kTyping,
            quotes(9));
        row("corner brackets", "|", typed("\""), "\u300C|", kTyping, quotes(10));
        row("out of range is plain", "a|", typed("\""), "a\"|", kTyping, quotes(11));
        row("negative is plain", "a|", typed("\""), "a\"|", kTyping, quotes(-1));
        for (int style = 0; style <= 10; ++style) {
            const QByteArray s = "quote style " + QByteArray::number(style);
            row(s + " pairs after a blank", "a |b", typed("\""), QString(), kTyping,
                quotes(style, true));
            row(s + " wraps", "x ⟦word⟧", typed("\""), QString(), kText, quotes(style, true));
            row(s + " over a selection", "⟦ a⟧", typed("\""), QString(), kTyping, quotes(style));
        }
        // The gate: two or more units, or a letter, pass every rule unchanged.
        row("two line breaks", "- x|", typed("\n\n"), "- x\n\n|", kTyping, kPairing);
        row("two tabs after an abbreviation", "sig|", typed("\t\t"), "sig\t\t|", kTyping);
        row("two brackets", "|", typed("(("), "((|", kTyping, kPairing);
        row("two quotes", "|", typed("\"\""), "\"\"|", kTyping, quotes(3, true));
        row("combining mark", "a|", typed("\u0301"), "a\u0301|", kTyping, quotes(3, true));

        using L = LineCommands;
        row("indent", "⟦a\nb⟧", command(L::indentSelectedText), "⟦\ta\n\tb⟧", kIndent);
        row("de-indent", "⟦\t\ta\n\tb⟧", command(L::deIndentSelectedText), "⟦\ta\nb⟧", kIndent);
        row("de-indent, empty middle line", "⟦\ta\n\n\tb⟧", command(L::deIndentSelectedText),
            "⟦a\n\nb⟧", kIndent);
        row("copy before", "x ⟦ab⟧ y", command(L::insertSelectedTextBeforeSelection),
            "x ab\n⟦ab⟧ y", kIndent);
        row("copy after", "x ⟦ab⟧ y", command(L::insertSelectedTextAfterSelection), "x ⟦ab⟧\nab y",
            kIndent);
        row("copy left", "x ⟦ab⟧ y", command(L::insertSelectedTextLeftToSelection), "x ab ⟦ab⟧ y",
            "UNDO_COPYPAST_LEFT");
        row("copy right", "x ⟦ab⟧ y", command(L::insertSelectedTextRightToSelection), "x ⟦ab⟧ ab y",
            "UNDO_COPYPAST_RIGHT");
        row("move up", "aaa\nbbb ⟦ccc⟧", command(L::moveSelectionUp), "aaa⟦ccc⟧\nbbb ",
            "UNDO_MOVE_UP");
        row("move up from the first line", "abc ⟦def⟧ g", command(L::moveSelectionUp),
            "⟦def⟧\nabc  g", "UNDO_MOVE_UP");
        row("move down", "x⟦aaa⟧\nbbb", command(L::moveSelectionDown), "x\n⟦aaa⟧bbb",
            "UNDO_MOVE_DOWN");
        row("move down from the last line", "ab ⟦cd⟧ e", command(L::moveSelectionDown),
            "ab  e\n⟦cd⟧", "UNDO_MOVE_DOWN");
        row("move left", "aaa bbb ⟦ccc⟧", command(L::moveSelectionLeft), "aaa ⟦ccc⟧ bbb",
            "UNDO_MOVE_DOWN");
        row("move left, no blank before", "ab⟦cd⟧ e", command(L::moveSelectionLeft), "⟦cd⟧ab e",
            "UNDO_MOVE_DOWN");
        // The blank before the word travels with it, so the line break stays behind.
        row("move left across a line", "a\nbb ⟦cc⟧", command(L::moveSelectionLeft), "a ⟦cc⟧\nbb",
            "UNDO_MOVE_DOWN");
        row("move left, right-to-left", "א בב ⟦גג⟧", command(L::moveSelectionLeft), "א ⟦גג⟧ בב",
            "UNDO_MOVE_DOWN");
        row("move right", "⟦aaa⟧ bbb ccc", command(L::moveSelectionRight), "bbb ⟦aaa⟧ ccc",
            "UNDO_MOVE_DOWN");
        row("move right, no blank after", "⟦ab⟧cd", command(L::moveSelectionRight), "cd⟦ab⟧",
            "UNDO_MOVE_DOWN");
        row("move right, surrogates", "⟦😀⟧ 😺x y", command(L::moveSelectionRight), "😺x ⟦😀⟧ y",
            "UNDO_MOVE_DOWN");

        row("markup, no selection: caret between", "x|y", markup("A{*}B"), "xA|By", kMarkup);
        row("markup, selection: caret after", "⟦word⟧", markup("A{*}B"), "AwordB|", kMarkup);
        row("markup, every placeholder", "⟦ab⟧", markup("{*}-{*}"), "ab-ab|", kMarkup);
        row("markup, empty template removes", "x⟦ab⟧y", markup(""), "x|y", kMarkup);
        row("markup, no placeholder", "a|", markup("<hr>"), "a<hr>|", kMarkup);
        row("markup, surrogates", "⟦😀⟧", markup("**{*}**"), "**😀**|", kMarkup);
        row("tag wrap", "⟦div⟧", command(MarkupInsertion::transformSelectedTextToTag),
            "<div>|</div>", kText);
        row("trim lines", "x⟦  a  \n\tb⟧", command(MarkupInsertion::trimLines), "x⟦a\nb⟧", kText);
        row(
            "remove markup", "a ⟦**b** x⟧",
            [](TextEditorModel &m) {
                MarkupInsertion::removeMarkup(m, 1, [](int, QString text) -> QString {
                    return "<p>" + text.remove(u'*') + "</p>";
                });
            },
            "a ⟦b x⟧", kText);
        row(
            "the undo primitive", "abcdef",
            [](TextEditorModel &m) {
                m.undoCustomInsertionInRange({1, 3}, "XY", {0, 2});
            },
            "⟦aX⟧Yef", kText);
    }
    void everyEdit()
    {
        QFETCH(QString, before);
        QFETCH(Action, action);
        QFETCH(QString, after);
        QFETCH(QString, step);
        QFETCH(TypingEngine::Options, options);
        StringEditor string(before, kTabActions, options);
        checkOneStep(*string.model, action, after, step);
        if (QTest::currentTestFailed())
            return;
        checkOneStep(widgetModel(before, options), action, after, step);
    }

    void typingSessionsUndoThroughEveryStateSeen_data()
    {
        QTest::addColumn<TypingEngine::Options>("options");
        QTest::addColumn<QString>("script");
        const QString lists = "- one\ntwo\n\n1. a\nb\n\nIV x\n\t- in\n\n";
        const QString marks = "say \"hi\" (x) [\"y\"] <z> {\"\b\b\b}\n\"q\"\b\b\"";
        const QString tabs = "x sig\tyou\n\tbrb\t.\n";
        for (int style : {0, 3, 9}) {
            for (bool pairing : {false, true}) {
                const QByteArray name =
                    "style " + QByteArray::number(style) + (pairing ? " paired" : " unpaired");
                const TypingEngine::Options options{pairing, style};
                QTest::newRow(QByteArray(name + ", lists").constData()) << options << lists;
                QTest::newRow(QByteArray(name + ", marks").constData()) << options << marks;
                QTest::newRow(QByteArray(name + ", tabs").constData()) << options << tabs;
            }
        }
    }
    void typingSessionsUndoThroughEveryStateSeen()
    {
        QFETCH(TypingEngine::Options, options);
        QFETCH(QString, script);
        StringEditor string("|", kTabActions, options);
        checkSession(*string.model, script);
        if (QTest::currentTestFailed())
            return;
        checkSession(widgetModel("|", options), script);
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

VELLOX_TEST_MAIN(TestUndo)
#include "tst_undo.moc"
