#include "core/PropertyList.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

namespace {
QByteArray wrap(const QByteArray &body)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
           "<plist version=\"1.0\">\n" +
           body + "\n</plist>\n";
}

QVariant roundTrip(const QVariant &value)
{
    QString error;
    const QVariant back = PropertyList::fromXml(PropertyList::toXml(value), &error);
    if (!error.isEmpty())
        qWarning() << "round trip failed:" << error;
    return back;
}

} // namespace

class TestPropertyList : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void writesTheStandardDocument()
    {
        QVariantMap map;
        map.insert("b", "x & <y>");
        map.insert("a", QVariantMap());
        const QByteArray xml = PropertyList::toXml(map);
        // Keys sorted, tab indents, empty containers self-closed.
        QCOMPARE(xml, wrap("<dict>\n\t<key>a</key>\n\t<dict/>\n\t<key>b</key>\n"
                           "\t<string>x &amp; &lt;y&gt;</string>\n</dict>"));
        QCOMPARE(PropertyList::toXml(QVariantMap()), wrap("<dict/>"));
    }

    void everyTypeSurvivesARoundTrip()
    {
        const QDateTime when(QDate(2024, 2, 29), QTime(23, 59, 58), Qt::UTC);
        QByteArray binary;
        for (int i = 0; i < 300; ++i)
            binary += char(i * 7);
        QVariantMap inner;
        inner.insert("flag", true);
        inner.insert("off", false);
        inner.insert("list", QVariantList{qlonglong(1), "two", 3.5, QVariantList()});
        QVariantMap top;
        top.insert("inner", inner);
        top.insert("negative", qlonglong(-9223372036854775807LL - 1));
        top.insert("big", qlonglong(9223372036854775807LL));
        top.insert("real", 0.1);
        top.insert("tiny", 1e-300);
        top.insert("whole", 3.0);
        top.insert("date", when);
        top.insert("data", binary);
        top.insert("empty data", QByteArray());
        top.insert("empty", QString(""));

        const QVariant back = roundTrip(top);
        QCOMPARE(back.typeId(), int(QMetaType::QVariantMap));
        const QVariantMap m = back.toMap();
        QCOMPARE(m.value("inner").toMap().value("flag").typeId(), int(QMetaType::Bool));
        QCOMPARE(m.value("negative").typeId(), int(QMetaType::LongLong));
        QCOMPARE(m.value("whole").typeId(), int(QMetaType::Double));
        QCOMPARE(m.value("date").toDateTime().timeSpec(), Qt::UTC);
        QCOMPARE(m.value("data").typeId(), int(QMetaType::QByteArray));
        QCOMPARE(m.value("empty").typeId(), int(QMetaType::QString));
        QCOMPARE(m, top);

        // Other Qt types are written as their plist counterparts.
        QVariantHash hash;
        hash.insert("n", 7);
        hash.insert("s", QStringList{"a", "b"});
        const QVariantMap fromHash = roundTrip(hash).toMap();
        QCOMPARE(fromHash.value("n"), QVariant(qlonglong(7)));
        QCOMPARE(fromHash.value("s"), QVariant(QVariantList{"a", "b"}));
        QCOMPARE(roundTrip(quint64(18446744073709551615ULL)),
                 QVariant(quint64(18446744073709551615ULL)));
        QCOMPARE(roundTrip(float(0.5)), QVariant(0.5));

        // Dates go out in UTC with a Z, whatever zone they came in.
        const QDateTime local(QDate(2024, 6, 1), QTime(12, 0), Qt::OffsetFromUTC, 7200);
        QVERIFY(PropertyList::toXml(local).contains("<date>2024-06-01T10:00:00Z</date>"));
        QCOMPARE(roundTrip(local).toDateTime(), local);

        const double specials[] = {std::numeric_limits<double>::infinity(),
                                   -std::numeric_limits<double>::infinity()};
        for (double d : specials)
            QCOMPARE(roundTrip(d).toDouble(), d);
        QVERIFY(std::isnan(roundTrip(std::nan("")).toDouble()));
    }

    void everyCharacterOfTextSurvives_data()
    {
        QTest::addColumn<QString>("text");
        addRow("markup", QString("a < b && c > d ]]> <![CDATA[ x ]]> &amp; \"q\" 'a'"));
        addRow("blanks", QString("  leading\tand trailing \n\n  "));
        addRow("only newline", QString("\n"));
        addRow("carriage returns", QString("one\r\ntwo\rthree\n"));
        addRow("non-BMP", QString::fromUtf8("caf\xC3\xA9 \xF0\x9F\x98\x80 \xF0\x9D\x84\x9E"));
        addRow("vertical tab from a word processor", QString("line\x0B"
                                                             "break\x0C"
                                                             "page"));
        addRow("nul and escape", (QString("a") + QChar(0) + QString("b\x1B[0m")));
        addRow("noncharacters", (QString("x") + QChar(0xFFFE) + QChar(0xFFFF) + "y"));
        addRow("lone surrogates", (QString("a") + QChar(0xD83D) + "b" + QChar(0xDE00) + "c"));
        addRow("private use beside controls",
               (QString::fromUcs4(U"\U000F0000\U000F0001 \x0B \U000F0000")));
        addRow("reference look-alike", QString("&#11; written by hand\x01"));
        addRow("empty", QString(""));
    }

    void everyCharacterOfTextSurvives()
    {
        QFETCH(QString, text);
        QVariantMap map;
        map.insert(text.isEmpty() ? QStringLiteral("k") : text, text);
        map.insert("list", QVariantList{text, text});
        QCOMPARE(roundTrip(map).toMap(), map);
        QCOMPARE(roundTrip(text).toString(), text);
    }

    void readsHandWrittenAndForeignFiles()
    {
        QString error;
        // Comments, CDATA, character references, an empty string, CRLF line ends, a hex
        // integer and a dictionary key that repeats (the last one wins).
        const QByteArray doc =
            wrap("<!-- my actions -->\r\n<dict>\r\n"
                 "  <key>sig</key><string><![CDATA[<b>Bold</b> & co]]></string>\r\n"
                 "  <key>smile</key><string>&#x1F600;&#233;&quot;</string>\r\n"
                 "  <key>blank</key><string/>\r\n"
                 "  <key>hex</key><integer> 0x1F </integer>\r\n"
                 "  <key>plus</key><integer>+12</integer>\r\n"
                 "  <key>frac</key><date>2001-01-01T00:00:00.250Z</date>\r\n"
                 "  <key>sig</key><string>second\r\nline</string>\r\n"
                 "</dict>");
        const QVariantMap m = PropertyList::fromXml(doc, &error).toMap();
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(m.value("smile").toString(), QString::fromUtf8("\xF0\x9F\x98\x80\xC3\xA9\""));
        QCOMPARE(m.value("blank"), QVariant(QString("")));
        QCOMPARE(m.value("hex"), QVariant(qlonglong(31)));
        QCOMPARE(m.value("plus"), QVariant(qlonglong(12)));
        QCOMPARE(m.value("frac").toDateTime().time().msec(), 250);
        QCOMPARE(m.value("sig").toString(), QString("second\nline"));
        QCOMPARE(m.size(), 6);

        // A bare value without <plist> is accepted, as macOS does.
        QCOMPARE(PropertyList::fromXml("<array><true/><real>2.5e3</real></array>", &error),
                 QVariant(QVariantList{true, 2500.0}));
        QVERIFY(error.isEmpty());
        // The root need not be a dictionary; callers decide what they accept.
        QCOMPARE(PropertyList::fromXml(wrap("<string>just text</string>")).toString(),
                 QString("just text"));
    }

    void badDocumentsAreReportedNotGuessed_data()
    {
        QTest::addColumn<QByteArray>("document");
        addRow("whitespace", QByteArray(" \n\t "));
        addRow("plain text", QByteArray("abbr = expansion\n"));
        addRow("json", QByteArray("{\"a\": \"b\"}"));
        addRow("html", QByteArray("<html><body><p>hi</p></body></html>"));
        addRow("truncated", wrap("<dict><key>a</key><string>b</string>").left(140));
        addRow("unclosed string", wrap("<dict><key>a</key><string>b</dict>"));
        addRow("key without value", wrap("<dict><key>a</key></dict>"));
        addRow("value without key", wrap("<dict><string>b</string></dict>"));
        addRow("text in dict", wrap("<dict>stray<key>a</key><string>b</string></dict>"));
        addRow("element in string", wrap("<string>a<b>c</b></string>"));
        addRow("unknown element", wrap("<dictionary/>"));
        addRow("empty plist", wrap(""));
        addRow("two values", wrap("<string>a</string><string>b</string>"));
        addRow("bad integer", wrap("<integer>12abc</integer>"));
        addRow("integer overflow", wrap("<integer>-99999999999999999999</integer>"));
        addRow("bad real", wrap("<real>one</real>"));
        addRow("bad base64", wrap("<data>%%%%</data>"));
        addRow("bad date", wrap("<date>yesterday</date>"));
        addRow("content in true", wrap("<true>yes</true>"));
        addRow("undefined entity", wrap("<string>&nbsp;</string>"));
        addRow("binary plist", QByteArray("bplist00\xd1\x01\x02", 11));
        addRow("deep nesting",
               wrap(QByteArray("<array>").repeated(2000) + QByteArray("</array>").repeated(2000)));
    }

    void badDocumentsAreReportedNotGuessed()
    {
        QFETCH(QByteArray, document);
        QString error;
        const QVariant v = PropertyList::fromXml(document, &error);
        QVERIFY2(!v.isValid(), qPrintable(v.toString()));
        QVERIFY(!error.isEmpty());
    }

    void readAndWriteFiles()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath("list.plist");
        QString error;

        QVERIFY(!PropertyList::read(path, &error).isValid());
        QVERIFY2(error.contains("does not exist"), qPrintable(error));

        writeBytes(path, "");
        QVERIFY(!PropertyList::read(path, &error).isValid());
        QVERIFY2(error.contains("empty"), qPrintable(error));

        QVERIFY(!PropertyList::read(dir.path(), &error).isValid());
        QVERIFY(!error.isEmpty());

        QVariantMap map{{"a", "1"}};
        QVERIFY(PropertyList::write(path, map, &error));
        QVERIFY(error.isEmpty());
        QCOMPARE(PropertyList::read(path, &error), QVariant(map));
        map.insert("b", "2");
        QVERIFY(PropertyList::write(path, map));
        QCOMPARE(PropertyList::read(path).toMap(), map);
        // The atomic save leaves no temporary file behind.
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"list.plist"});

        QVERIFY(!PropertyList::write(dir.filePath("missing/folder/x.plist"), map, &error));
        QVERIFY(!error.isEmpty());
    }

    // Another implementation of the format, run as a real process, must agree with ours.
    void interoperatesWithPythonPlistlib()
    {
        const QString python = QStandardPaths::findExecutable("python3");
        if (python.isEmpty())
            QSKIP("python3 is not installed");
        QTemporaryDir dir;
        const QString ours = dir.filePath("ours.plist");
        const QString theirs = dir.filePath("theirs.plist");
        QVariantMap map;
        map.insert("snippet", QString::fromUtf8("<p>\xF0\x9F\x98\x80 & caf\xC3\xA9</p>\n\tend"));
        map.insert("count", qlonglong(-42));
        map.insert("bytes", QByteArray("\x00\x01\xff", 3));
        map.insert("when", QDateTime(QDate(2020, 1, 2), QTime(3, 4, 5), Qt::UTC));
        QVERIFY(PropertyList::write(ours, map));

        const QString script =
            QStringLiteral("import plistlib, sys\n"
                           "d = plistlib.load(open(sys.argv[1], 'rb'))\n"
                           "assert d['snippet'] == '<p>\\U0001F600 & caf\\u00e9</p>\\n\\tend', d\n"
                           "assert d['count'] == -42 and d['bytes'] == b'\\x00\\x01\\xff'\n"
                           "assert d['when'].isoformat().startswith('2020-01-02T03:04:05')\n"
                           "d['added'] = [1.5, True, 'x']\n"
                           "plistlib.dump(d, open(sys.argv[2], 'wb'), fmt=plistlib.FMT_XML)\n");
        QProcess py;
        py.start(python, {"-c", script, ours, theirs});
        QVERIFY(py.waitForFinished(30000));
        QVERIFY2(py.exitCode() == 0, py.readAllStandardError().constData());

        QString error;
        QVariantMap back = PropertyList::read(theirs, &error).toMap();
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(back.take("added"), QVariant(QVariantList{1.5, true, "x"}));
        QCOMPARE(back, map);
    }
};

VELLOX_TEST_MAIN(TestPropertyList)
#include "tst_propertylist.moc"
