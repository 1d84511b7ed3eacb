#include "editor/ListNumbering.h"
#include "editor/TypingEngine.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QtTest>

class TestListNumbering : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void romanNumerals()
    {
        // Only the right-hand neighbour is compared, never a running maximum ("IIX" is 10);
        // the trailing space and foreign letters count 0.
        const QList<QPair<QString, int>> reads{{"IV ", 4},   {"VI ", 6}, {"MCMXCIV ", 1994},
                                               {"IIX ", 10}, {"VX ", 5}, {"I ", 1},
                                               {"XAX ", 20}, {"", 0}};
        for (const auto &[roman, value] : reads)
            QCOMPARE(ListNumbering::convertToNormal(roman), value);
        // No upper bound; zero and negatives give nothing.
        const QList<QPair<int, QString>> writes{
            {0, ""},        {-5, ""},        {4, "IV"},          {49, "XLIX"},
            {4000, "MMMM"}, {5000, "MMMMM"}, {3999, "MMMCMXCIX"}};
        for (const auto &[value, roman] : writes)
            QCOMPARE(ListNumbering::convertToRoman(value), roman);
    }

    void letterCounts()
    {
        // A remainder of 0 writes "Z" without borrowing: 52 is "BZ", which reads back as 78.
        const QList<QPair<int, QString>> writes{
            {1, "A"},    {26, "Z"},   {27, "AA"},   {52, "BZ"},   {53, "BA"}, {78, "CZ"},
            {676, "ZZ"}, {677, "ZA"}, {702, "AAZ"}, {703, "AAA"}, {0, "A"}};
        for (const auto &[value, letters] : writes)
            QCOMPARE(ListNumbering::convertIntValueToAlphaCount(value), letters);
        const QList<QPair<QString, int>> reads{{"A", 1},   {"AZ", 52}, {"BA", 53},
                                               {"BZ", 78}, {"A1", 26}, {"", 0}};
        for (const auto &[letters, value] : reads)
            QCOMPARE(ListNumbering::convertAlphaCountToNormal(letters), value);
        // Wraps in 32 bits instead of failing.
        ListNumbering::convertAlphaCountToNormal(QString(40, u'Z'));
    }

    // The successions the typing engine produces when continuing a list.
    void successions_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("next");
        addRow("AY", "AY. x", "BZ. ");
        addRow("AZ", "AZ. x", "BA. ");
        addRow("BZ", "BZ. x", "CA. ");
        addRow("YZ", "YZ. x", "ZA. ");
        addRow("ZY", "ZY. x", "AAZ. ");
        addRow("ZZ", "ZZ. x", "AAA. ");
        addRow("IX", "IX x", "X ");
        addRow("XLIX", "XLIX x", "L ");
        addRow("MMMCMXCIX", "MMMCMXCIX x", "MMMM ");
        addRow("an ordinary word is taken for roman", "I went home", "II ");
        addRow("did", "did it", "m ");
        addRow("I. is a letter list", "I. Intro", "J. ");
        addRow("big decimal", "2147483646. x", "2147483647. ");
        addRow("star after spaces", "   * x", "* ");
    }
    void successions()
    {
        QFETCH(QString, line);
        QFETCH(QString, next);
        const TypingEngine::ListMarker marker = TypingEngine::listMarkerForLine(line);
        QVERIFY(marker.isList);
        QCOMPARE(marker.next, next);
    }

    void notLists()
    {
        for (const QString line :
             {"plain", "\t2. x", "2.x", "-x", "", "   ", "10.5 apples", "Ünïcode first", "a) b"})
            QVERIFY2(!TypingEngine::listMarkerForLine(line).isList, qPrintable(line));
    }
};

VELLOX_TEST_MAIN(TestListNumbering)
#include "tst_listnumbering.moc"
