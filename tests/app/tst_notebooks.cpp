#include "app/widgets/NotebookOrderModel.h"
#include "app/widgets/PreferencesController.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "library/NotebookRegistry.h"
#include "support/TestHome.h"
#include "widgets/Alert.h"
#include "widgets/IconChooserDialog.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMimeData>
#include <QTemporaryDir>
#include <QtTest>

namespace {
QList<QVariantMap> notebooks(const QStringList &names, const QString &root)
{
    QList<QVariantMap> list;
    for (const QString &name : names) {
        QDir().mkpath(root + QLatin1Char('/') + name);
        list << QVariantMap{{"DiaryName", name}, {"DiaryDocumentPath", QString(root + "/" + name)}};
    }
    return list;
}

QStringList names(const QList<QVariantMap> &records)
{
    QStringList out;
    for (const QVariantMap &r : records)
        out << r.value("DiaryName").toString();
    return out;
}
} // namespace

class TestNotebooks : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        TestHome::instance()->reset();
        Alert::clearHistory();
        Alert::setResponder([](const AlertRequest &) { return 0; });
        m_root.reset(new QTemporaryDir);
    }

    void newNamesCountUpAndStopAtNinetyNine()
    {
        QCOMPARE(NotebookRegistry::uniqueNewName("New", {}), QString("New (0)"));
        QCOMPARE(NotebookRegistry::uniqueNewName("New", {"New (0)", "New (2)"}),
                 QString("New (1)"));
        QStringList taken;
        for (int i = 0; i < 100; ++i)
            taken << QString("New (%1)").arg(i);
        // After a hundred clashes the last candidate is used although it is taken.
        QCOMPARE(NotebookRegistry::uniqueNewName("New", taken), QString("New (99)"));
    }

    void moveRuleMatchesTheOrderTable()
    {
        auto list = notebooks({"a", "b", "c", "d", "e"}, m_root->path());
        NotebookRegistry::moveRecord(list, 0, 3);
        QCOMPARE(names(list), QStringList({"b", "c", "a", "d", "e"}));
        list = notebooks({"a", "b", "c", "d", "e"}, m_root->path());
        NotebookRegistry::moveRecord(list, 3, 0);
        QCOMPARE(names(list), QStringList({"d", "a", "b", "c", "e"}));
        list = notebooks({"a", "b", "c"}, m_root->path());
        NotebookRegistry::moveRecord(list, 1, 1);
        QCOMPARE(names(list), QStringList({"a", "b", "c"}));
        NotebookRegistry::moveRecord(list, 0, 3); // dropped below the last row
        QCOMPARE(names(list), QStringList({"b", "c", "a"}));
    }

    void savingKeepsTheBookmarkOfAnUnchangedFolder()
    {
        UserDefaults &d = UserDefaults::standard();
        NotebookRegistry registry(d);
        auto list = notebooks({"Diary", "Work"}, m_root->path());
        list[0].insert("DiarySecURL", QByteArray("bookmark"));
        registry.store(list);

        QCOMPARE(registry.saveRecord(0, "Diary", m_root->path() + "/Diary"),
                 NotebookRegistry::SaveResult::Saved);
        QCOMPARE(registry.record(0).value("DiarySecURL").toByteArray(), QByteArray("bookmark"));
        QCOMPARE(registry.saveRecord(0, "Journal", m_root->path() + "/Work"),
                 NotebookRegistry::SaveResult::Saved);
        QVERIFY(!registry.record(0).contains("DiarySecURL"));
        QCOMPARE(registry.getDiaryTitles(), QStringList({"Journal", "Work"}));
    }

    void preferencesPaneCreatesDeletesAndSaves()
    {
        UserDefaults &d = UserDefaults::standard();
        NotebookRegistry registry(d);
        registry.store(notebooks({"Diary"}, m_root->path()));
        PreferencesController prefs(d);
        int collectionUpdates = 0;
        QObject observer;
        NotificationCenter::defaultCenter().addObserver(
            &observer, Notifications::DiaryCollectionUpdated,
            [&](const Notification &) { ++collectionUpdates; });

        // The last notebook cannot go; nothing else happens.
        prefs.diaryDdeleteSelected();
        QCOMPARE(Alert::history().size(), 1);
        QCOMPARE(Alert::history().last().buttons,
                 QStringList({qtTrId("LAST_NOTEBOOK_CANT_BE_DELETED_OKBUTTON")}));
        QCOMPARE(registry.count(), 1);
        QCOMPARE(collectionUpdates, 0);

        prefs.diaryCreateNew();
        prefs.diaryCreateNew();
        const QString base = qtTrId("PREFERENCES_NEW_UNNAMED_NOTEBOOK");
        QCOMPARE(registry.getDiaryTitles(), QStringList({"Diary", base + " (0)", base + " (1)"}));
        QCOMPARE(prefs.selector()->currentIndex(), 2);
        QVERIFY(prefs.locationField()->text().isEmpty());
        QVERIFY(registry.record(2).value("DiaryDocumentPath").toString().isEmpty());
        QCOMPARE(collectionUpdates, 0); // the main window hears of it once it is saved

        // Saving without a folder is refused with the English message.
        prefs.diarySaveChangeForSelected();
        QCOMPARE(Alert::history().last().title, QString("No save-destination selected"));
        QCOMPARE(Alert::history().last().message,
                 QString("You need to set a location to save your settings"));

        // Choosing a folder names the unnamed notebook after it and shows its icon.
        const QString travel = m_root->path() + "/Travel";
        QDir().mkpath(travel);
        QImage icon(16, 16, QImage::Format_ARGB32);
        icon.fill(Qt::red);
        QVERIFY(icon.save(travel + "/.DiaryIcon.png"));
        prefs.applyChosenLocation(travel);
        QCOMPARE(prefs.nameField()->text(), QString("Travel"));
        QVERIFY(!prefs.iconWellImage().isNull());

        // Another notebook's name is refused; then a proper save stores the record, writes
        // the icon back and tells the main window.
        prefs.nameField()->setText("Diary");
        prefs.diarySaveChangeForSelected();
        QCOMPARE(Alert::history().last().title, QString("Name already exists"));
        QCOMPARE(Alert::history().last().message,
                 QString("A diary with that name already exists. Please choose another name."));
        QCOMPARE(registry.getDiaryTitles().at(2), base + " (1)");

        QFile::remove(travel + "/.DiaryIcon.png");
        prefs.nameField()->setText("Travel");
        prefs.diarySaveChangeForSelected();
        QCOMPARE(registry.record(2).value("DiaryName").toString(), QString("Travel"));
        QCOMPARE(registry.record(2).value("DiaryDocumentPath").toString(), travel);
        QVERIFY(QFile::exists(travel + "/.DiaryIcon.png"));
        QCOMPARE(collectionUpdates, 1);
        QCOMPARE(prefs.selector()->currentIndex(), 2);

        // Deleting leaves the folder alone and shows notebook 0.
        prefs.diaryDdeleteSelected();
        QCOMPARE(registry.getDiaryTitles(), QStringList({"Diary", base + " (0)"}));
        QVERIFY(QFile::exists(travel + "/.DiaryIcon.png"));
        QCOMPARE(prefs.selector()->currentIndex(), 0);
        QCOMPARE(collectionUpdates, 2);
    }

    void orderTableDropMovesOneRecordAndKeepsSelection()
    {
        UserDefaults &d = UserDefaults::standard();
        NotebookRegistry registry(d);
        registry.store(notebooks({"a", "b", "c", "d"}, m_root->path()));
        PreferencesController prefs(d);
        prefs.setDiarySelectedWithIndex(1); // "b"

        NotebookOrderModel *model = prefs.orderModel();
        QCOMPARE(model->mimeTypes(), QStringList({"MyPrivateTableViewDataType"}));
        std::unique_ptr<QMimeData> drag(model->mimeData({model->index(0, 0), model->index(2, 0)}));
        QVERIFY(drag->hasFormat("MyPrivateTableViewDataType"));
        QVERIFY(model->canDropMimeData(drag.get(), Qt::MoveAction, 3, 0, QModelIndex()));
        QVERIFY(model->dropMimeData(drag.get(), Qt::MoveAction, 3, 0, QModelIndex()));
        QTRY_COMPARE(registry.getDiaryTitles(), QStringList({"b", "c", "a", "d"}));
        QCOMPARE(prefs.selector()->currentText(), QString("b"));
        QCOMPARE(model->rowCount(), 4);
        QCOMPARE(model->index(2, 0).data().toString(), QString("a"));
    }

    void themeIconChooserFillsTheIconWell()
    {
        UserDefaults &d = UserDefaults::standard();
        NotebookRegistry(d).store(notebooks({"Diary"}, m_root->path()));
        PreferencesController prefs(d);
        QVERIFY(prefs.iconWellImage().isNull());
        IconChooserDialog chooser;
        QVERIFY2(chooser.list()->count() >= 10, "the desktop icon theme offers too few icons");
        const QString name = chooser.list()->item(0)->data(Qt::UserRole).toString();
        const QString file = chooser.chooseIcon(name);
        QVERIFY(QImage(file).width() >= 64);
        // The chooser's notification reaches the preferences, which show the icon.
        QVERIFY(!prefs.iconWellImage().isNull());
        prefs.diarySaveChangeForSelected();
        QVERIFY(QFile::exists(m_root->path() + "/Diary/.DiaryIcon.png"));
    }

private:
    std::unique_ptr<QTemporaryDir> m_root;
};

VELLOX_TEST_MAIN(TestNotebooks)
#include "tst_notebooks.moc"
