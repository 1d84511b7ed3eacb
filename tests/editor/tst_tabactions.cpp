#include "core/AppPaths.h"
#include "core/PropertyList.h"
#include "editor/TabActionStore.h"
#include "editor/TabActionTableModel.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QSignalSpy>
#include <QtTest>

class TestTabActions : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { TestHome::instance()->reset(); }

    void pathFollowsTheSettings()
    {
        using F = TabActionStore::FileSettings;
        const QString home = TestHome::instance()->path() + "/home";
        const QString internal = home + "/.local/share/Vellox/tabactions.plist";
        QCOMPARE(TabActionStore::internalPath(), internal);
        QCOMPARE(TabActionStore::pathInUse(F()), internal);
        // The path alone does not switch files.
        QCOMPARE(TabActionStore::pathInUse(F{false, "~/Sync/mine.tabActions", {}}), internal);
        QCOMPARE(TabActionStore::pathInUse(F{true, "~/Sync/mine.tabActions", {}}),
                 home + "/Sync/mine.tabActions");
        // Switched on before a file was chosen: the internal list keeps working.
        QCOMPARE(TabActionStore::pathInUse(F{true, "", {}}), internal);
    }

    void brokenFilesGiveAnEmptyListAndOneLogLine_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("problem");
        addRow("missing", QByteArray(), "does not exist");
        addRow("empty", QByteArray(""), "empty");
        addRow("not a plist", QByteArray("sig = Best regards\n"), "line 1");
        addRow("array root", PropertyList::toXml(QVariantList{"sig", "Best regards"}),
               "root is an array");
        addRow("string root", PropertyList::toXml(QString("sig")), "root is a string");
    }

    void brokenFilesGiveAnEmptyListAndOneLogLine()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, problem);
        const QString path = TabActionStore::internalPath();
        if (QTest::currentDataTag() != QLatin1String("missing"))
            writeBytes(path, content);
        const QDateTime before = QFileInfo(path).lastModified();

        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^ERROR: tab actions in \"" +
                                                              QRegularExpression::escape(path) +
                                                              "\" ignored: .*" + problem));
        QVERIFY(TabActionStore::availableTabActions({}).isEmpty());
        // Tab asks again and again; the same problem is not logged again.
        QTest::failOnWarning(QRegularExpression("tab actions"));
        QVERIFY(TabActionStore::availableTabActions({}).isEmpty());
        QVERIFY(TabActionStore::availableTabActions({}).isEmpty());

        // Never written, never created.
        QCOMPARE(QFileInfo::exists(path), QTest::currentDataTag() != QLatin1String("missing"));
        if (QFileInfo::exists(path)) {
            QCOMPARE(readBytes(path), content);
            QCOMPARE(QFileInfo(path).lastModified(), before);
        }
        QCOMPARE(QDir(AppPaths::supportFolder()).entryList(QDir::Files).size(),
                 QFileInfo::exists(path) ? 1 : 0);
    }

    // After the file was broken and repaired, a new break is reported again.
    void aRepairedFileBreakingAgainIsReportedAgain()
    {
        const QString path = TabActionStore::internalPath();
        writeBytes(path, "garbage");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("ignored"));
        QVERIFY(TabActionStore::availableTabActions({}).isEmpty());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("a copy was kept"));
        QVERIFY(TabActionStore::save(path, {{"a", "b"}}));
        QCOMPARE(TabActionStore::availableTabActions({}).size(), 1);
        writeBytes(path, "garbage");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("ignored"));
        QVERIFY(TabActionStore::availableTabActions({}).isEmpty());
    }

    void onlyExpandableEntriesReachTheTypingEngine()
    {
        QVariantMap file;
        file.insert("ok", "expansion");
        file.insert("", "fires after every blank");
        file.insert("two words", "can never be typed");
        file.insert("tab\there", "neither");
        file.insert("nested", QVariantMap{{"x", "y"}});
        file.insert("number", qlonglong(3));
        const QString path = TabActionStore::internalPath();
        QVERIFY(TabActionStore::save(path, file));
        QCOMPARE(TabActionStore::availableTabActions({}), (QVariantMap{{"ok", "expansion"}}));
        // The window still gets everything, so saving from it loses nothing.
        QCOMPARE(TabActionStore::load(path), file);
    }

    void savingOverAnUnreadableFileKeepsACopy()
    {
        const QString path = TabActionStore::internalPath();
        const QByteArray old = "<plist><dict><key>sig</key><string>half a file";
        writeBytes(path, old);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("could not be read.*copy was kept"));
        QVERIFY(TabActionStore::save(path, {{"new", "list"}}));
        QCOMPARE(TabActionStore::load(path), (QVariantMap{{"new", "list"}}));
        const QStringList copies =
            QDir(AppPaths::supportFolder()).entryList({"tabactions.plist.unreadable-*"});
        QCOMPARE(copies.size(), 1);
        QCOMPARE(readBytes(AppPaths::supportFolder() + "/" + copies.first()), old);

        // A readable file is simply replaced, with no copies piling up.
        QVERIFY(TabActionStore::save(path, {{"newer", "list"}}));
        QCOMPARE(QDir(AppPaths::supportFolder()).entryList(QDir::Files).size(), 2);

        QString error;
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^FILEWRITING-ERROR: "));
        QVERIFY(!TabActionStore::save("/nonexistent-folder/x.tabActions", {}, &error));
        QVERIFY(!error.isEmpty());
    }

    void namesSortCaseInsensitivelyAndAreChecked()
    {
        const QVariantMap actions{{"beta", ""}, {"Alpha", ""}, {"alpha", ""}, {"Gamma", ""}};
        QCOMPARE(TabActionStore::sortedAbbreviations(actions),
                 (QStringList{"Alpha", "alpha", "beta", "Gamma"}));

        using C = TabActionStore::NameCheck;
        const QStringList listed{"sig", "addr"};
        QCOMPARE(TabActionStore::checkNewName("my abbr", listed), C::ContainsBlank);
        QCOMPARE(TabActionStore::checkNewName(QString("nb") + QChar(0xA0) + "sp", listed),
                 C::ContainsBlank);
        QCOMPARE(TabActionStore::checkNewName("sig", listed), C::Duplicate);
        QCOMPARE(TabActionStore::checkNewName("Sig", listed), C::Acceptable);
        QCOMPARE(TabActionStore::checkNewName("", listed), C::Empty);
    }

    void tableModelPresentsAndDragsRows()
    {
        TabActionTableModel model;
        const QVariantMap actions{{"smile", QString::fromUtf8("\xF0\x9F\x98\x80 {*}")},
                                  {"sig", "Regards"}};
        model.setTabActions({"sig", "smile"}, actions);

        // Editing a name only asks; the list changes when the window rebuilds it.
        QSignalSpy spy(&model, &TabActionTableModel::renameRequested);
        QVERIFY(!model.setData(model.index(1, 0), "grin"));
        QCOMPARE(spy.value(0), (QVariantList{1, "grin"}));
        QCOMPARE(model.names(), (QStringList{"sig", "smile"}));

        std::unique_ptr<QMimeData> one(model.mimeData({model.index(1, 0)}));
        QVERIFY(one->hasFormat("MyPrivateTableViewDataType"));
        QCOMPARE(one->data("text/plain;charset=utf-8"), actions.value("smile").toString().toUtf8());
        QDataStream rows(one->data("MyPrivateTableViewDataType"));
        qint32 count = 0, row = -1;
        rows >> count >> row;
        QCOMPARE(count, 1);
        QCOMPARE(row, 1);

        // Several rows carry only their numbers: there is no single expansion to give.
        std::unique_ptr<QMimeData> two(model.mimeData({model.index(1, 0), model.index(0, 0)}));
        QVERIFY(two->hasFormat("MyPrivateTableViewDataType"));
        QVERIFY(!two->hasText());
    }
};

VELLOX_TEST_MAIN(TestTabActions)
#include "tst_tabactions.moc"
