#include "EditorFixture.h"
#include "core/PropertyList.h"
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

    void shippedTableHasEveryLanguage()
    {
        const QString path = MarkupInsertion::templateTablePath();
        QVERIFY2(QFile::exists(path), qPrintable(path));
        const QVariantMap table = PropertyList::read(path).toMap();
        QCOMPARE(table.size(), 7);
        QSet<QString> bolds;
        for (const QString &name : MarkupInsertion::availableMarkupLanguages()) {
            const QVariantMap entry = table.value(name).toMap();
            QVERIFY2(entry.value("bold").toString().contains("{*}"), qPrintable(name));
            QVERIFY2(entry.value("italic").toString().contains("{*}"), qPrintable(name));
            QVERIFY(entry.value("bold") != entry.value("italic"));
            const QVariantList headlines = entry.value("headline").toList();
            QCOMPARE(headlines.size(), 4);
            for (const QVariant &h : headlines)
                QVERIFY2(h.toString().contains("{*}"), qPrintable(name));
            bolds.insert(entry.value("bold").toString());
        }
        QVERIFY(bolds.size() >= 4); // each language in its own syntax
    }

    void templateLookupFollowsTheLanguage()
    {
        using M = MarkupInsertion;
        QCOMPARE(M::markupTemplateForType("bold", 1), QString("**{*}**"));
        QCOMPARE(M::markupTemplateForType("headline2", 1), QString("## {*}"));
        QCOMPARE(M::markupTemplateForType("italic", 2), QString("_{*}_"));
        QCOMPARE(M::markupTemplateForType("headline1", 2), QString("h1. {*}"));
        QCOMPARE(M::markupTemplateForType("headline4", 6), QString("<h4>{*}</h4>"));
        for (const QString type : {"strike", "headline5", "headline0", "", "Bold"})
            QCOMPARE(M::markupTemplateForType(type, 1), QString());
        for (int language : {0, 8, -1})
            QCOMPARE(M::markupTemplateForType("bold", language), QString());
        QCOMPARE(M::markupTemplateForType("bold", 1, "/nonexistent.plist"), QString());
    }

    void commandsUseTheGivenLanguage()
    {
        StringEditor e("⟦Title⟧");
        MarkupInsertion::insertBoldTypeStyle(*e.model, 3);
        QCOMPARE(e.model->string(), QString("'''Title'''"));
        QVERIFY(e.notices >= 1);
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
