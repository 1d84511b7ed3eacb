// The capture panel's search pane over real notebook folders: which entries it lists, what a
// search keeps, what it shows of an entry, and how the pane follows the user.
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "menubar/EntryNameSearch.h"
#include "menubar/widgets/StatusBarSearch.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <dirent.h>

namespace {
// The names as readdir() hands them out, for the order the listing must keep.
QStringList rawOrder(const QString &folder)
{
    QStringList names;
    if (DIR *dir = opendir(QFile::encodeName(folder).constData())) {
        while (dirent *item = readdir(dir)) {
            const QString name = QFile::decodeName(item->d_name);
            if (name != QLatin1String(".") && name != QLatin1String(".."))
                names << name;
        }
        closedir(dir);
    }
    return names;
}

void makeBundle(const QString &path, const QByteArray &text)
{
    QDir().mkpath(path + QStringLiteral("/assets"));
    writeBytes(path + QStringLiteral("/info.json"), "{}");
    writeBytes(path + QStringLiteral("/text.md"), text);
}
} // namespace

class TestMenubarSearch : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void listingKeepsOnlyTheEntryExtensionInFolderOrder();
    void readsPlainEntriesAndTextBundles();
    void paneFollowsNotebookSearchAndSelection();
};

void TestMenubarSearch::listingKeepsOnlyTheEntryExtensionInFolderOrder()
{
    QTemporaryDir dir;
    const QString folder = dir.path();
    for (const char *name : {"zeta.txt", "Alpha.txt", "shout.TXT", "notes.md", "_notes.stfn",
                             ".hidden.txt", "m.txt", "b.txt"})
        writeBytes(folder + QLatin1Char('/') + QLatin1String(name), "x");
    QDir().mkpath(folder + QStringLiteral("/Trip.textbundle"));

    QStringList expected;
    for (const QString &name : rawOrder(folder))
        if (name.endsWith(QLatin1String(".txt")))
            expected << name;
    QCOMPARE(EntryNameSearch::listEntries(folder, QStringLiteral("txt")), expected);
    QCOMPARE(EntryNameSearch::listEntries(folder, QStringLiteral("textbundle")),
             QStringList{QStringLiteral("Trip.textbundle")});
    QVERIFY(EntryNameSearch::listEntries(folder + QStringLiteral("/gone"), QStringLiteral("txt"))
                .isEmpty());
}

void TestMenubarSearch::readsPlainEntriesAndTextBundles()
{
    QTemporaryDir dir;
    writeBytes(dir.filePath(QStringLiteral("Plain.txt")), "caf\xc3\xa9 au lait\n");
    makeBundle(dir.filePath(QStringLiteral("Bundle.textbundle")), "# inside the bundle\n");
    QDir().mkpath(dir.filePath(QStringLiteral("Empty.textbundle")));

    QCOMPARE(EntryNameSearch::readEntryText(dir.path(), QStringLiteral("Plain.txt")),
             QStringLiteral("caf\u00e9 au lait\n"));
    QCOMPARE(EntryNameSearch::readEntryText(dir.path(), QStringLiteral("Bundle.textbundle")),
             QStringLiteral("# inside the bundle\n"));
    QCOMPARE(EntryNameSearch::readEntryText(dir.path(), QStringLiteral("Empty.textbundle")),
             QString());
    QCOMPARE(EntryNameSearch::readEntryText(dir.path(), QStringLiteral("Gone.txt")), QString());
}

void TestMenubarSearch::paneFollowsNotebookSearchAndSelection()
{
    QTemporaryDir dir;
    const QString first = dir.filePath(QStringLiteral("First"));
    const QString second = dir.filePath(QStringLiteral("Second"));
    QDir().mkpath(first);
    QDir().mkpath(second);
    writeBytes(first + QStringLiteral("/Holiday plans.txt"), "pack the tent");
    writeBytes(first + QStringLiteral("/Groceries.txt"), "holiday cheese");
    writeBytes(second + QStringLiteral("/Other.txt"), "second notebook");
    UserDefaults defaults(dir.filePath(QStringLiteral("settings.conf")));
    defaults.registerDefaults(UserDefaults::defaultsTable());
    defaults.setValue(Settings::DiarySaveDestinations,
                      RecordList{{{QStringLiteral("DiaryName"), QStringLiteral("First")},
                                  {QStringLiteral("DiaryDocumentPath"), first}},
                                 {{QStringLiteral("DiaryName"), QStringLiteral("Second")},
                                  {QStringLiteral("DiaryDocumentPath"), second}}});

    StatusBarSearch pane(defaults);
    QSignalSpy listed(&pane, &StatusBarSearch::itemsChanged);
    QSignalSpy shown(&pane, &StatusBarSearch::entryShown);
    QVERIFY(listed.wait());
    QCOMPARE(pane.notebookSelection()->count(), 2);
    QCOMPARE(pane.items().size(), 2);

    // Searching runs on the text's words in names, never in what the entries say.
    pane.searchForField()->setText(QStringLiteral("HOLIDAY"));
    QVERIFY(listed.wait());
    QCOMPARE(pane.items(), QStringList{QStringLiteral("Holiday plans.txt")});
    QCOMPARE(pane.noteItems()->item(0)->text(), QStringLiteral("Holiday plans"));

    pane.noteItems()->setCurrentRow(0);
    QVERIFY(shown.wait());
    QCOMPARE(pane.contentView()->toPlainText(), QStringLiteral("pack the tent"));

    // Blanks list everything again at once.
    listed.clear();
    pane.searchForField()->setText(QStringLiteral("   "));
    QVERIFY(listed.size() == 1 || listed.wait());
    QCOMPARE(pane.items().size(), 2);

    // Another notebook: its entries, nothing selected, nothing shown.
    pane.noteItems()->setCurrentRow(0);
    QVERIFY(shown.wait());
    QVERIFY(!pane.contentView()->toPlainText().isEmpty());
    pane.notebookSelection()->setCurrentIndex(1);
    Q_EMIT pane.notebookSelection()->activated(1);
    QVERIFY(pane.contentView()->toPlainText().isEmpty());
    QVERIFY(listed.wait());
    QCOMPARE(pane.items(), QStringList{QStringLiteral("Other.txt")});
    QVERIFY(pane.noteItems()->selectedItems().isEmpty());

    // A third notebook announced by the registry shows up in the pop-up.
    RecordList records = defaults.value(Settings::DiarySaveDestinations);
    records << QVariantMap{{QStringLiteral("DiaryName"), QStringLiteral("Third")},
                           {QStringLiteral("DiaryDocumentPath"), dir.path()}};
    defaults.setValue(Settings::DiarySaveDestinations, records);
    NotificationCenter::defaultCenter().post(Notifications::DiaryCollectionUpdated);
    QCOMPARE(pane.notebookSelection()->count(), 3);
    QCOMPARE(pane.notebookSelection()->itemText(2), QStringLiteral("Third"));
}

VELLOX_TEST_MAIN(TestMenubarSearch)
#include "tst_menubarsearch.moc"
