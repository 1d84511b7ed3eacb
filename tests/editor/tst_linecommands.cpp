#include "EditorFixture.h"
#include "editor/DocumentTextBuffer.h"
#include "editor/LineCommands.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QTextDocument>
#include <QtTest>

#include <functional>

using Command = std::function<bool(TextEditorModel &)>;
Q_DECLARE_METATYPE(Command)

namespace {
Command command(bool (*f)(TextEditorModel &))
{
    return Command(f);
}
} // namespace

class TestLineCommands : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { TestHome::instance()->reset(); }

    void refusals_data()
    {
        QTest::addColumn<Command>("run");
        QTest::addColumn<QString>("before");
        QTest::addColumn<int>("beeps");
        using L = LineCommands;
        addRow("indent, nothing selected: silent", command(L::indentSelectedText), "a|b", 0);
        addRow("de-indent, nothing selected: silent", command(L::deIndentSelectedText), "\ta|", 0);
        addRow("copy before", command(L::insertSelectedTextBeforeSelection), "a|", 1);
        addRow("copy after", command(L::insertSelectedTextAfterSelection), "a|", 1);
        addRow("copy left", command(L::insertSelectedTextLeftToSelection), "a|", 1);
        addRow("copy right", command(L::insertSelectedTextRightToSelection), "a|", 1);
        addRow("move up at 0", command(L::moveSelectionUp), "⟦ab⟧\ncd", 1);
        addRow("move up, empty", command(L::moveSelectionUp), "ab\nc|d", 1);
        addRow("move down at 0", command(L::moveSelectionDown), "⟦ab⟧\ncd", 1);
        addRow("move left at 0", command(L::moveSelectionLeft), "⟦ab⟧ cd", 1);
        addRow("move right, empty", command(L::moveSelectionRight), "ab| cd", 1);
        addRow("no empty line above", command(L::moveCursorToPreviousEmptyLine), "a\nb|", 1);
        addRow("no empty line below", command(L::moveCursorToNextEmptyLine), "|a\nb", 1);
    }
    void refusals()
    {
        QFETCH(Command, run);
        QFETCH(QString, before);
        QFETCH(int, beeps);
        StringEditor e(before);
        QVERIFY(!run(*e.model));
        QCOMPARE(e.marked(), before);
        QCOMPARE(e.beeps, beeps);
        QVERIFY(!e.model->canUndo());
    }

    void deIndentLeavesInnerTabs()
    {
        StringEditor e("⟦a\tb⟧");
        LineCommands::deIndentSelectedText(*e.model);
        QCOMPARE(e.marked(), QString("⟦a\tb⟧"));
        QVERIFY(!e.model->canUndo());
    }

    void caretMoves_data()
    {
        QTest::addColumn<Command>("run");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        using L = LineCommands;
        addRow("end of paragraph", command(L::moveCursorToTheEndOfParagraph), "a|b\ncd", "ab|\ncd");
        addRow("end of the last paragraph", command(L::moveCursorToTheEndOfParagraph), "ab\nc|d",
               "ab\ncd|");
        addRow("end of paragraph from a selection", command(L::moveCursorToTheEndOfParagraph),
               "⟦a⟧b\ncd", "ab|\ncd");
        addRow("beginning stops on the break", command(L::moveCursorToTheBeginningOfParagraph),
               "ab\ncd\ne|f", "ab\ncd|\nef");
        addRow("beginning of the first line", command(L::moveCursorToTheBeginningOfParagraph),
               "ab|", "|ab");
        addRow("previous empty line", command(L::moveCursorToPreviousEmptyLine), "a\n\nb\n\nc|",
               "a\n\nb\n|\nc");
        addRow("next empty line", command(L::moveCursorToNextEmptyLine), "|a\n\nb\n\nc",
               "a\n|\nb\n\nc");
        addRow("hard line break", command(L::moveCursorToTheEndOfParagraphAndPerformHardLineBreak),
               "a|b\nc", "ab  \n|\nc");
        addRow("hard line break in a list",
               command(L::moveCursorToTheEndOfParagraphAndPerformHardLineBreak), "- a|b\nc",
               "- ab  \n|\nc");
    }
    void caretMoves()
    {
        QFETCH(Command, run);
        QFETCH(QString, before);
        QFETCH(QString, after);
        StringEditor e(before);
        QVERIFY(run(*e.model));
        QCOMPARE(e.marked(), after);
        // The hard line break moves and then types: one Undo takes the typing back.
        if (e.model->canUndo()) {
            e.model->undo();
            QCOMPARE(e.model->string(), Marked::parse(before).text);
            e.model->redo();
            QCOMPARE(e.model->string(), Marked::parse(after).text);
        }
    }

    // The commands read through the TextBuffer seam; the document-backed buffer must answer
    // exactly as the string one does, across line breaks and at the edges.
    void documentBufferAnswersLikeAString()
    {
        const QStringList texts = {"",
                                   "a",
                                   "\n",
                                   "ab\n\ncd\n",
                                   "x\n\n\ny",
                                   "😀\nשלום\u2028z\n\n",
                                   QString("line\n").repeated(50) + "\n\nend"};
        const QStringList needles = {"\n", "\n\n", "d\n", "\nc", "zz"};
        for (const QString &text : texts) {
            QTextDocument document;
            document.setPlainText(text);
            DocumentTextBuffer doc(&document);
            StringTextBuffer str(text);
            QCOMPARE(doc.length(), str.length());
            QCOMPARE(doc.text(), text);
            for (int pos = -1; pos <= str.length() + 1; ++pos) {
                QCOMPARE(doc.at(pos), str.at(pos));
                QCOMPARE(doc.lineStart(pos), str.lineStart(pos));
                QCOMPARE(doc.mid(pos, 3), str.mid(pos, 3));
                for (const QString &needle : needles) {
                    QCOMPARE(doc.indexOf(needle, pos), str.indexOf(needle, pos));
                    QCOMPARE(doc.lastIndexOf(needle, pos), str.lastIndexOf(needle, pos));
                    // The generic scans of the base class agree as well.
                    QCOMPARE(doc.TextBuffer::indexOf(needle, pos), str.indexOf(needle, pos));
                    QCOMPARE(doc.TextBuffer::lastIndexOf(needle, pos),
                             str.lastIndexOf(needle, pos));
                }
            }
        }
    }
};

VELLOX_TEST_MAIN(TestLineCommands)
#include "tst_linecommands.moc"
