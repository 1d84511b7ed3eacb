#include "core/RegexCache.h"
#include "support/TestHome.h"

#include <QtTest>

class TestRegexCache : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { RegexCache::shared().clear(); }

    void matchesOnlyAtTheStart()
    {
        RegexCache &cache = RegexCache::shared();
        QVERIFY(cache.matchesAtStart("[0-9]{1,}\\. ", u"12. x"));
        QVERIFY(!cache.matchesAtStart("[0-9]{1,}\\. ", u"\t12. x"));
        QVERIFY(!cache.matchesAtStart("[0-9]{1,}\\. ", u"12.x"));
        QVERIFY(!cache.matchesAtStart("[0-9]{1,}\\. ", u""));
        // A view into a longer text is read as it is, without copying.
        const QString text = "xx IV rest";
        QVERIFY(cache.matchesAtStart("[MCDXILV]{1,} ", QStringView(text).mid(3)));
        QCOMPARE(cache.size(), 2);
    }

    void positionsAreUtf16Units()
    {
        RegexCache &cache = RegexCache::shared();
        int length = 0;
        const QString text = QString::fromUtf8("😀 <b>שלום</b>");
        QCOMPARE(cache.indexIn("<[^>]*>", text, 0, &length), 3);
        QCOMPARE(length, 3);
        QCOMPARE(cache.indexIn("<[^>]*>", text, 4, &length), 10);
        QCOMPARE(cache.indexIn("<[^>]*>", text, 14, &length), -1);
        QCOMPARE(cache.indexIn("<[^>]*>", text, 99), -1);
        QCOMPARE(cache.replaceAll("<[^>]*>", text, ""), QString::fromUtf8("😀 שלום"));
    }

    void replacementIsLiteral()
    {
        QCOMPARE(RegexCache::shared().replaceAll("(a)", "banana", "$1\\"),
                 QString("b$1\\n$1\\n$1\\"));
        QCOMPARE(RegexCache::shared().replaceAll("x*", "ab", "-"), QString("-a-b-"));
    }

    void badPatternsFailQuietly()
    {
        RegexCache &cache = RegexCache::shared();
        QVERIFY(!cache.pattern("(unclosed"));
        QVERIFY(!cache.matchesAtStart("(unclosed", u"(unclosed"));
        QCOMPARE(cache.replaceAll("(unclosed", "keep", ""), QString("keep"));
        QCOMPARE(cache.indexIn("[", u"["), -1);
    }

    void evictsTheLeastRecentlyUsed()
    {
        RegexCache &cache = RegexCache::shared();
        const auto *first = cache.pattern("p0");
        for (int i = 1; i <= RegexCache::Capacity; ++i) {
            cache.pattern(QString("p%1").arg(i));
            cache.pattern("p0"); // kept in use, so never evicted
        }
        QCOMPARE(cache.size(), RegexCache::Capacity);
        QCOMPARE(cache.pattern("p0"), first);
        QVERIFY(cache.matchesAtStart("p1", u"p1")); // recompiled after eviction
    }
};

VELLOX_TEST_MAIN(TestRegexCache)
#include "tst_regexcache.moc"
