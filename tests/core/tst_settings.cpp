#include "core/NotificationCenter.h"
#include "core/UserDefaults.h"
#include "support/TestHome.h"

#include <QFile>
#include <QSettings>
#include <QtTest>

class TestSettings : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { TestHome::instance()->reset(); }

    void freshStoreAnswersDefaultsAndWritesNothing()
    {
        UserDefaults &d = UserDefaults::standard();
        QCOMPARE(d.integerForKey("TextViewFontSize"), 12);
        QCOMPARE(d.colorForKey("TextViewCursorColorSelection "), QColor(Qt::black));
        // Without the trailing blank it is another key, which has no default.
        QVERIFY(!d.objectForKey("TextViewCursorColorSelection").isValid());
        // Unregistered keys read as false / 0 / nothing.
        QCOMPARE(d.boolForKey("USEBLACKDOCUMENT"), false);
        QCOMPARE(d.integerForKey("PrefSCKeycode"), 0);
        QVERIFY(d.stringForKey("FullscreenBackgroundImage").isNull());
        d.sync();
        for (const auto &entry : UserDefaults::defaultsTable())
            QVERIFY2(!d.hasStoredValue(entry.first), qPrintable(entry.first));
        QVERIFY(
            !QFile::exists(UserDefaults::standardFilePath()) ||
            QSettings(UserDefaults::standardFilePath(), QSettings::IniFormat).allKeys().isEmpty());
    }

    void writesAreHumanReadableAndSurviveReopening()
    {
        UserDefaults &d = UserDefaults::standard();
        d.setInteger("TextViewFontSize", 17);
        d.setColor("TextViewCursorColorSelection ", QColor(255, 0, 0, 128));
        d.setRecords("DiarySaveDestinations",
                     {{{"DiaryName", "Diary"}, {"DiaryDocumentPath", "/tmp/a b"}},
                      {{"DiaryName", "Work"}, {"DiaryDocumentPath", "/tmp/work"}}});
        d.setBool("USEBLACKDOCUMENT", true);
        const QString path = d.filePath();
        QVERIFY(path.endsWith("/.config/Vellox/Vellox.conf"));
        UserDefaults::resetStandard();

        QSettings raw(path, QSettings::IniFormat);
        QCOMPARE(raw.value("DiarySaveDestinations/size").toInt(), 2);
        QCOMPARE(raw.value("DiarySaveDestinations/2/DiaryName").toString(), QString("Work"));
        QCOMPARE(raw.value("TextViewCursorColorSelection ").toString(), QString("#80ff0000"));

        UserDefaults &again = UserDefaults::standard();
        QCOMPARE(again.integerForKey("TextViewFontSize"), 17);
        QCOMPARE(again.colorForKey("TextViewCursorColorSelection "), QColor(255, 0, 0, 128));
        QCOMPARE(again.boolForKey("USEBLACKDOCUMENT"), true);
        const auto records = again.recordsForKey("DiarySaveDestinations");
        QCOMPARE(records.size(), 2);
        QCOMPARE(records[0].value("DiaryDocumentPath").toString(), QString("/tmp/a b"));
        QVERIFY(!records[0].contains("DiarySecURL"));

        again.removeObjectForKey("TextViewFontSize");
        QCOMPARE(again.integerForKey("TextViewFontSize"), 12);
        QVERIFY(!again.hasStoredValue("TextViewFontSize"));
    }

    void damagedFileKeepsWhatCanBeRead()
    {
        const QString path = UserDefaults::standardFilePath();
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[General]\nTextViewFontSize=20\n\x01\x02 garbage [[[\n"
                   "[DiarySaveDestinations]\n1\\DiaryName=Diary\n1\\DiaryDocumentPath=/tmp/d\n"
                   "size=1\n");
        file.close();
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^ERROR: settings file .* damaged"));
        UserDefaults &d = UserDefaults::standard();
        QCOMPARE(d.integerForKey("TextViewFontSize"), 20);
        QCOMPARE(d.recordsForKey("DiarySaveDestinations").size(), 1);
        // The damaged original survives the next write for recovery by hand.
        d.setInteger("TextViewFontSize", 21);
        const QStringList copies =
            QDir(QFileInfo(path).path()).entryList({"Vellox.conf.damaged-*"}, QDir::Files);
        QCOMPARE(copies.size(), 1);
        QFile copy(QFileInfo(path).path() + "/" + copies.first());
        QVERIFY(copy.open(QIODevice::ReadOnly));
        QVERIFY(copy.readAll().contains("garbage"));
    }

    void notificationsCarryObjectAndUserInfo()
    {
        NotificationCenter &center = NotificationCenter::defaultCenter();
        auto *owner = new QObject;
        QList<Notification> seen;
        center.addObserver(owner, "SetnewDateNotification",
                           [&](const Notification &n) { seen.append(n); });
        center.post("SetnewDateNotification", QVariant(QString("/tmp/icon.png")),
                    {{"NewDateString", "Monday"}});
        center.post("OtherNotification");
        QCOMPARE(seen.size(), 1);
        QCOMPARE(seen[0].object.toString(), QString("/tmp/icon.png"));
        QCOMPARE(seen[0].userInfo.value("NewDateString").toString(), QString("Monday"));
        delete owner;
        center.post("SetnewDateNotification");
        QCOMPARE(seen.size(), 1);
        QCOMPARE(center.observerCount("SetnewDateNotification"), 0);
    }
};

VELLOX_TEST_MAIN(TestSettings)
#include "tst_settings.moc"
