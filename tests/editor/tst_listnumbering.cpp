#include "editor/ListNumbering.h"
#include "editor/TypingEngine.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QtTest>

class TestListNumbering : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void romanToInteger_data()
    {
        QTest::addColumn<QString>("roman");
        QTest::addColumn<int>("value");
        addRow("IV", "IV ", 4);
        addRow("VI", "VI ", 6);
        addRow("MCMXCIV", "MCMXCIV ", 1994);
        // Only the right-hand neighbour is compared, never a running maximum.
        addRow("IIX", "IIX ", 10);
        addRow("VX", "VX ", 5);
        addRow("trailing space never subtracts", "I ", 1);
        addRow("foreign letters count 0", "XAX ", 20);
        addRow("empty", "", 0);
    }
    void romanToInteger()
    {
        QFETCH(QString, roman);
        QFETCH(int, value);
        QCOMPARE(ListNumbering::convertToNormal(roman), value);
    }

    void integerToRoman_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("roman");
        addRow("0", 0, "");
        addRow("negative", -5, "");
        addRow("4", 4, "IV");
        addRow("49", 49, "XLIX");
        addRow("3999", 3999, "MMMCMXCIX");
        addRow("4000 has no upper bound", 4000, "MMMM");
        addRow("5000", 5000, "MMMMM");
    }
    void integerToRoman()
    {
        QFETCH(int, value);
        QFETCH(QString, roman);
        QCOMPARE(ListNumbering::convertToRoman(value), roman);
    }

    void lettersBothWays_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("letters");
        addRow("1", 1, "A");
        addRow("26", 26, "Z");
        addRow("27", 27, "AA");
        addRow("52 keeps the Z without borrowing", 52, "BZ");
        addRow("53", 53, "BA");
        addRow("78", 78, "CZ");
        addRow("676", 676, "ZZ");
        addRow("677", 677, "ZA");
        addRow("702", 702, "AAZ");
        addRow("703", 703, "AAA");
    }
    void lettersBothWays()
    {
        QFETCH(int, value);
        QFETCH(QString, letters);
        QCOMPARE(ListNumbering::convertIntValueToAlphaCount(value), letters);
    }

    void lettersToInteger()
    {
        QCOMPARE(ListNumbering::convertAlphaCountToNormal("A"), 1);
        QCOMPARE(ListNumbering::convertAlphaCountToNormal("AZ"), 52);
        QCOMPARE(ListNumbering::convertAlphaCountToNormal("BA"), 53);
        QCOMPARE(ListNumbering::convertAlphaCountToNormal("BZ"), 78);
        QCOMPARE(ListNumbering::convertAlphaCountToNormal("A1"), 26);
        QCOMPARE(ListNumbering::convertAlphaCountToNormal(""), 0);
        // Wraps in 32 bits instead of failing.
        ListNumbering::convertAlphaCountToNormal(QString(40, u'Z'));
        QCOMPARE(ListNumbering::convertIntValueToAlphaCount(0), QString("A"));
    }

    // The successions the typing engine produces when continuing a list (the common ones are
    // checked through the engine itself).
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
        addRow("lower letters", "az. x", "ba. ");
        addRow("IV", "IV x", "V ");
        addRow("IX", "IX x", "X ");
        addRow("XLIX", "XLIX x", "L ");
        addRow("MMMCMXCIX", "MMMCMXCIX x", "MMMM ");
        addRow("an ordinary word is taken for roman", "I went home", "II ");
        addRow("did", "did it", "m ");
        addRow("I. is a letter list", "I. Intro", "J. ");
        addRow("big decimal", "2147483646. x", "2147483647. ");
        addRow("star after spaces", "   * x", "* ");
        addRow("plus", "+ x", "+ ");
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
