// Undo must never lose text: whatever an edit did, one Undo gives back exactly the text (and
// selection) from before it, and Redo the text after it. Every kind of edit the editor makes
// is run on a plain string and on the real editor widget's document.
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
const QVariantMap kTabActions{{"sig", "Best,\n{*} and {*}"}, {"brb", "be right back"}};

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

void backspace(TextEditorModel &m)
{
    const TextRange s = m.selectedRange();
    m.userEdit(s.length > 0 ? s : TextRange{s.location - 1, 1}, QString());
}

QString marked(const TextEditorModel &m)
{
    return Marked::render(m.string(), m.selectedRange());
}

void row(const QByteArray &name, const QString &before, const Action &action,
         TypingEngine::Options options = {})
{
    QTest::newRow(name.constData()) << before << action << options;
}

// One user action on a fresh history: exactly one step, undone and redone exactly.
void checkOneStep(TextEditorModel &m, const Action &action)
{
    const QString before = marked(m);
    const QString beforeText = m.string();
    action(m);
    const QString after = marked(m);
    QVERIFY2(m.string() != beforeText, "the edit changed nothing, so the row tests nothing");
    QCOMPARE(m.history().undoCount(), 1);
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

    void everyEditUndoesToTheWholeTextBefore_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<Action>("action");
        QTest::addColumn<TypingEngine::Options>("options");
        const Action enter = typed("\n");
        const Action tab = typed("\t");
        const TypingEngine::Options pairing{true, 0};

        row("letter", "ab|", typed("c"));
        row("letter over a selection", "a⟦bc⟧d", typed("x"));
        row("paste", "a|b", typed("pasted\ntext"));
        row("backspace", "ab|c", backspace);
        row("backspace over a selection", "a⟦b\nc⟧d", backspace);
        row("enter outside a list", "plain|", enter);
        for (const char *marker : {"- ", "* ", "+ ", "9. ", "IV ", "iv ", "Z. ", "az. "}) {
            const QString m = QString::fromLatin1(marker);
            row("enter continues " + QByteArray(marker), m + "abc|", enter);
            row("enter over a selection, " + QByteArray(marker), m + "ab⟦cd⟧ef", enter);
            row("enter ends an empty " + QByteArray(marker), "x\n" + m + "|", enter);
        }
        row("enter over a selection across lines", "- a⟦b\nc⟧d", enter);
        row("enter over a whole list line", "- a\n⟦- b⟧", enter);
        row("enter carries tabs", "\t\t- a|", enter);
        row("enter on an indented number", "\t2. x|", enter);
        row("enter ends an indented item", "\t* |", enter);
        row("enter ends a bullet without its space", "a\n-|", enter);

        row("tab", "abc|", tab);
        row("tab indents a selection", "⟦a\nb\n⟧", tab);
        row("tab indents inside a line", "x⟦yz⟧", tab);
        row("tab expands an action with a mark", "Hi sig|", tab);
        row("tab expands an action", "x\nbrb|", tab);
        row("shift-tab", "⟦\t\ta\n\tb⟧", command(LineCommands::deIndentSelectedText));

        row("pair at the end", "abc|", typed("("), pairing);
        row("pair before a blank", "x| y", typed("["), pairing);
        row("pair angle", "|", typed("<"), pairing);
        row("pair brace", "a\n|\nb", typed("{"), pairing);
        row("wrap", "⟦abc⟧", typed("("), pairing);
        row("wrap in tags", "x ⟦b⟧ y", typed("<"), pairing);
        row("blank-first selection", "⟦ abc⟧", typed("["), pairing);
        row("over-type a closing bracket", "(|)", typed(")"), pairing);
        row("backspace inside a pair", "(|)", backspace, pairing);
        row("backspace over a pair", "⟦()⟧", backspace, pairing);
        for (int style = 0; style <= 10; ++style) {
            const QByteArray s = "quote style " + QByteArray::number(style);
            row(s + " pairs", "|", typed("\""), {true, style});
            row(s + " pairs after a blank", "a |b", typed("\""), {true, style});
            row(s + " wraps", "x ⟦word⟧", typed("\""), {true, style});
            row(s + " after a letter", "a|", typed("\""), {true, style});
            row(s + " opens", "a |", typed("\""), {false, style});
            row(s + " over a selection", "⟦ a⟧", typed("\""), {false, style});
        }

        using L = LineCommands;
        row("indent", "⟦a\nb⟧", command(L::indentSelectedText));
        row("copy before", "x ⟦ab⟧ y", command(L::insertSelectedTextBeforeSelection));
        row("copy after", "x ⟦ab⟧ y", command(L::insertSelectedTextAfterSelection));
        row("copy left", "x ⟦ab⟧ y", command(L::insertSelectedTextLeftToSelection));
        row("copy right", "x ⟦ab⟧ y", command(L::insertSelectedTextRightToSelection));
        row("move up", "aaa\nbbb ⟦ccc⟧", command(L::moveSelectionUp));
        row("move up from the first line", "abc ⟦def⟧ g", command(L::moveSelectionUp));
        row("move down", "x⟦aaa⟧\nbbb", command(L::moveSelectionDown));
        row("move down from the last line", "ab ⟦cd⟧ e", command(L::moveSelectionDown));
        row("move left", "aaa bbb ⟦ccc⟧", command(L::moveSelectionLeft));
        row("move left across a line", "a\nbb ⟦cc⟧", command(L::moveSelectionLeft));
        row("move right", "⟦aaa⟧ bbb ccc", command(L::moveSelectionRight));
        row("move right, no blank after", "⟦ab⟧cd", command(L::moveSelectionRight));

        row("markup without a selection", "x|y", markup("**{*}**"));
        row("markup around a selection", "⟦word⟧ x", markup("<em>{*}</em>"));
        row("empty markup removes the selection", "x⟦ab⟧y", markup(""));
        row("headline from the language table", "⟦Title⟧",
            [](TextEditorModel &m) { MarkupInsertion::insertHeadlineStyleType(m, 1, 2); });
        row("tag wrap", "⟦div⟧", command(MarkupInsertion::transformSelectedTextToTag));
        row("trim lines", "x⟦  a  \n\tb⟧", command(MarkupInsertion::trimLines));
        row("remove markup", "a ⟦**b** x⟧", [](TextEditorModel &m) {
            MarkupInsertion::removeMarkup(m, 1, [](int, QString text) -> QString {
                return "<p>" + text.remove(u'*') + "</p>";
            });
        });
        row("the undo primitive", "abcdef", [](TextEditorModel &m) {
            m.undoCustomInsertionInRange({1, 3}, "XY", {0, 2});
        });
    }
    void everyEditUndoesToTheWholeTextBefore()
    {
        QFETCH(QString, before);
        QFETCH(Action, action);
        QFETCH(TypingEngine::Options, options);
        StringEditor string(before, kTabActions, options);
        checkOneStep(*string.model, action);
        if (QTest::currentTestFailed())
            return;
        checkOneStep(widgetModel(before, options), action);
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

    // The hard line break first moves the caret and then types: undo takes back the text.
    void hardLineBreakUndoes()
    {
        StringEditor e("- a|b\nc");
        LineCommands::moveCursorToTheEndOfParagraphAndPerformHardLineBreak(*e.model);
        QCOMPARE(e.model->string(), QString("- ab  \n\nc"));
        e.model->undo();
        QCOMPARE(e.model->string(), QString("- ab\nc"));
        e.model->redo();
        QCOMPARE(e.model->string(), QString("- ab  \n\nc"));
    }
};

VELLOX_TEST_MAIN(TestUndo)
#include "tst_undo.moc"
