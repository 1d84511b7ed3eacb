#include "EditorFixture.h"
#include "editor/MarkupInsertion.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QFile>
#include <QtTest>

class TestMarkupInsertion : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { TestHome::instance()->reset(); }

    // Each language's own syntax, as its users write it by hand.
    void commandsWriteEachLanguagesSyntax_data()
    {
        QTest::addColumn<int>("language");
        QTest::addColumn<QString>("bold");
        QTest::addColumn<QString>("italic");
        QTest::addColumn<QString>("headline2");
        addRow("markdown", 1, QString("**x**"), QString("*x*"), QString("## x"));
        addRow("textile", 2, QString("*x*"), QString("_x_"), QString("h2. x"));
        addRow("wikitext", 3, QString("'''x'''"), QString("''x''"), QString("== x =="));
        addRow("bbcode", 4, QString("[b]x[/b]"), QString("[i]x[/i]"), QString());
        addRow("smark", 5, QString("**x**"), QString("*x*"), QString("## x"));
        addRow("html", 6, QString("<strong>x</strong>"), QString("<em>x</em>"),
               QString("<h2>x</h2>"));
        addRow("multimarkdown", 7, QString("**x**"), QString("*x*"), QString("## x ##"));
    }
    void commandsWriteEachLanguagesSyntax()
    {
        QFETCH(int, language);
        QFETCH(QString, bold);
        QFETCH(QString, italic);
        QFETCH(QString, headline2);
        StringEditor b("⟦x⟧"), i("⟦x⟧"), h("⟦x⟧");
        MarkupInsertion::insertBoldTypeStyle(*b.model, language);
        MarkupInsertion::insertItalicTypeStyle(*i.model, language);
        MarkupInsertion::insertHeadlineStyleType(*h.model, language, 2);
        QCOMPARE(b.model->string(), bold);
        QCOMPARE(i.model->string(), italic);
        QVERIFY(b.notices >= 1);
        if (!headline2.isEmpty())
            QCOMPARE(h.model->string(), headline2);
    }

    void unknownTypesAndLanguagesHaveNoTemplate()
    {
        using M = MarkupInsertion;
        for (const QString type : {"strike", "headline5", "headline0", "", "Bold"})
            QCOMPARE(M::markupTemplateForType(type, 1), QString());
        for (int language : {0, 8, -1})
            QCOMPARE(M::markupTemplateForType("bold", language), QString());
        QCOMPARE(M::markupTemplateForType("bold", 1, "/nonexistent.plist"), QString());
    }

    void emptyTemplatesAndCaretPlacement()
    {
        StringEditor italic("a |");
        MarkupInsertion::insertItalicTypeStyle(*italic.model, 3);
        QCOMPARE(italic.marked(), QString("a ''|''"));
        // The table has no strike template: the selection goes (and comes back on undo).
        StringEditor strike("x ⟦gone⟧");
        MarkupInsertion::insertStrikeTypeStyle(*strike.model, 3);
        QCOMPARE(strike.marked(), QString("x |"));
        StringEditor level("⟦t⟧");
        MarkupInsertion::insertHeadlineStyleType(*level.model, 3, 5);
        QCOMPARE(level.model->string(), QString());
        StringEditor none("a|b");
        QVERIFY(!MarkupInsertion::transformSelectedTextToTag(*none.model));
        QCOMPARE(none.marked(), QString("a|b"));
        QCOMPARE(none.beeps, 0);
    }

    void strippedTags()
    {
        QCOMPARE(MarkupInsertion::strippedTags("<p>a &lt;b&gt; <em>c</em> &amp; $1\\</p>\n"),
                 QString("a <b> c &amp; $1\\\n"));
        QCOMPARE(MarkupInsertion::strippedTags("<a href=\"x\">שלום</a>😀"), QString("שלום😀"));
    }

    void cleanUpsRefuseTinySelectionsAndFailedConversions()
    {
        const auto failing = [](int, const QString &) { return QString(); };
        StringEditor one("⟦*⟧");
        QVERIFY(!MarkupInsertion::removeMarkup(*one.model, 1, failing));
        QVERIFY(!MarkupInsertion::trimLines(*one.model));
        QCOMPARE(one.beeps, 2);
        // A converter that fails must not cost the user the selected text.
        StringEditor keep("⟦*keep me*⟧");
        QVERIFY(!MarkupInsertion::removeMarkup(*keep.model, 1, failing));
        QCOMPARE(keep.marked(), QString("⟦*keep me*⟧"));
        QCOMPARE(keep.beeps, 1);
        QCOMPARE(MarkupInsertion::trimmedLines(" \u00A0a\u3000\n\n b \n"), QString("a\n\nb\n"));
    }

    void removeMarkupThroughTheConverter()
    {
        if (!QFile::exists("/usr/bin/php"))
            QSKIP("the Markdown converter needs /usr/bin/php");
        StringEditor e("⟦**bold** and *it*⟧");
        QVERIFY(MarkupInsertion::removeMarkup(*e.model, 1));
        QCOMPARE(e.model->string().trimmed(), QString("bold and it"));
    }
};

VELLOX_TEST_MAIN(TestMarkupInsertion)
#include "tst_markupinsertion.moc"
