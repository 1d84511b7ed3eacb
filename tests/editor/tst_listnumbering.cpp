#include "editor/ListNumbering.h"
#include "editor/TypingEngine.h"
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
        QTest::newRow("IV") << "IV " << 4;
        QTest::newRow("VI") << "VI " << 6;
        QTest::newRow("MCMXCIV") << "MCMXCIV " << 1994;
        // Only the right-hand neighbour is compared, never a running maximum.
        QTest::newRow("IIX") << "IIX " << 10;
        QTest::newRow("VX") << "VX " << 5;
        QTest::newRow("trailing space never subtracts") << "I " << 1;
        QTest::newRow("foreign letters count 0") << "XAX " << 20;
        QTest::newRow("empty") << "" << 0;
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
        QTest::newRow("0") << 0 << "";
        QTest::newRow("negative") << -5 << "";
        QTest::newRow("4") << 4 << "IV";
        QTest::newRow("49") << 49 << "XLIX";
        QTest::newRow("3999") << 3999 << "MMMCMXCIX";
        QTest::newRow("4000 has no upper bound") << 4000 << "MMMM";
        QTest::newRow("5000") << 5000 << "MMMMM";
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
        QTest::newRow("1") << 1 << "A";
        QTest::newRow("26") << 26 << "Z";
        QTest::newRow("27") << 27 << "AA";
        QTest::newRow("52 keeps the Z without borrowing") << 52 << "BZ";
        QTest::newRow("53") << 53 << "BA";
        QTest::newRow("78") << 78 << "CZ";
        QTest::newRow("676") << 676 << "ZZ";
        QTest::newRow("677") << 677 << "ZA";
        QTest::newRow("702") << 702 << "AAZ";
        QTest::newRow("703") << 703 << "AAA";
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

    // The successions the typing engine produces when continuing a list.
    void successions_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("next");
        QTest::newRow("Z") << "Z. x"
                           << "AA. ";
        QTest::newRow("AY") << "AY. x"
                            << "BZ. ";
        QTest::newRow("AZ") << "AZ. x"
                            << "BA. ";
        QTest::newRow("BZ") << "BZ. x"
                            << "CA. ";
        QTest::newRow("YZ") << "YZ. x"
                            << "ZA. ";
        QTest::newRow("ZY") << "ZY. x"
                            << "AAZ. ";
        QTest::newRow("ZZ") << "ZZ. x"
                            << "AAA. ";
        QTest::newRow("lower letters") << "az. x"
                                       << "ba. ";
        QTest::newRow("IV") << "IV x"
                            << "V ";
        QTest::newRow("IX") << "IX x"
                            << "X ";
        QTest::newRow("XLIX") << "XLIX x"
                              << "L ";
        QTest::newRow("MMMCMXCIX") << "MMMCMXCIX x"
                                   << "MMMM ";
        QTest::newRow("lower roman") << "iv x"
                                     << "v ";
        QTest::newRow("an ordinary word is taken for roman") << "I went home"
                                                             << "II ";
        QTest::newRow("did") << "did it"
                             << "m ";
        QTest::newRow("roman needs the space") << "iv. x"
                                               << "iw. ";
        QTest::newRow("I. is a letter list") << "I. Intro"
                                             << "J. ";
        QTest::newRow("decimal") << "9. x"
                                 << "10. ";
        QTest::newRow("big decimal") << "2147483646. x"
                                     << "2147483647. ";
        QTest::newRow("bullet") << "- x"
                                << "- ";
        QTest::newRow("star after spaces") << "   * x"
                                           << "* ";
        QTest::newRow("plus") << "+ x"
                              << "+ ";
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
