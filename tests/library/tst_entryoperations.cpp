#include "core/UserDefaults.h"
#include "editor/widgets/Vellox_EnhancedTextView.h"
#include "library/CreationDate.h"
#include "library/NotebookRegistry.h"
#include "library/widgets/EntryController.h"
#include "library/widgets/EntryOperationsController.h"
#include "library/widgets/RenameSheet.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"
#include "widgets/MessageBar.h"

#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

namespace {
// The main window's entry part with the operations on it, over two notebooks.
struct Window
{
    QTemporaryDir here, there;
    QWidget window;
    QPlainTextEdit *editor = new Vellox_EnhancedTextView(UserDefaults::standard());
    QLineEdit *title = new QLineEdit;
    QListView *list = new QListView;
    MessageBar *bar = new MessageBar;
    NotebookRegistry registry{UserDefaults::standard()};
    std::unique_ptr<EntryController> entries;
    std::unique_ptr<EntryOperationsController> ops;

    Window()
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(title);
        layout->addWidget(list);
        layout->addWidget(bar);
        layout->addWidget(editor);
        entries = std::make_unique<EntryController>(editor, title, list, new QLabel(&window),
                                                    UserDefaults::standard());
        ops = std::make_unique<EntryOperationsController>(entries.get(), registry, bar,
                                                          UserDefaults::standard());
        registry.store(
            {{{NotebookRegistry::NameKey, "Here"}, {NotebookRegistry::PathKey, here.path()}},
             {{NotebookRegistry::NameKey, "There"}, {NotebookRegistry::PathKey, there.path()}}});
        window.show();
    }
    QString in(const QString &name) const { return here.path() + QLatin1Char('/') + name; }
    void open() { entries->setNotebookPath(here.path() + QLatin1Char('/')); }
    void select(int row)
    {
        list->selectionModel()->setCurrentIndex(list->model()->index(row, 0),
                                                QItemSelectionModel::ClearAndSelect);
    }
};
} // namespace

class TestEntryOperations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { TestHome::instance()->reset(); }

    void nextAndPreviousStopAtTheEndsWithABeep()
    {
        Window w;
        writeBytes(w.in("A.txt"), "a");
        writeBytes(w.in("B.txt"), "b");
        w.open();
        QSignalSpy beeps(w.ops.get(), &EntryOperationsController::beeped);
        w.ops->selectPreviousItemInTable();
        QCOMPARE(beeps.size(), 1);
        w.ops->selectNextItemInTable();
        QCOMPARE(w.entries->selectedFileName(), QStringLiteral("A.txt"));
        w.ops->selectNextItemInTable();
        QCOMPARE(w.editor->toPlainText(), QStringLiteral("b"));
        w.ops->selectNextItemInTable();
        QCOMPARE(beeps.size(), 2);
        w.ops->selectPreviousItemInTable();
        QCOMPARE(w.title->text(), QStringLiteral("A"));
    }

    void renamingTheOpenEntryKeepsItsLatestWordsAndAttachments()
    {
        Window w;
        writeBytes(w.in("Day.txt"), "old");
        writeBytes(w.in("Other.txt"), "other");
        QDir().mkpath(w.in("Day"));
        writeBytes(w.in("Day/photo.jpg"), "jpeg");
        w.open();
        w.select(0);
        w.editor->setFocus();
        QTest::keyClicks(w.editor, "new ");

        w.ops->setContextRow(0);
        RenameSheet *sheet = w.ops->tableviewContextRenameFile();
        QVERIFY(sheet);
        sheet->setContextRenameFileName(QStringLiteral("Other"));
        QVERIFY(!sheet->okButton()->isEnabled());
        QVERIFY(!sheet->messageLabel()->text().isEmpty());
        sheet->setContextRenameFileName(QString());
        QVERIFY(!sheet->okButton()->isEnabled());
        QVERIFY(sheet->messageLabel()->text().isEmpty());
        sheet->setContextRenameFileName(QStringLiteral("Night"));
        QVERIFY(sheet->okButton()->isEnabled());
        QTest::mouseClick(sheet->okButton(), Qt::LeftButton);

        QCOMPARE(filesIn(w.here.path()), QStringList({"Night", "Night.txt", "Other.txt"}));
        QCOMPARE(readBytes(w.in("Night.txt")), QByteArray("new old"));
        QCOMPARE(readBytes(w.in("Night/photo.jpg")), QByteArray("jpeg"));
        QCOMPARE(w.title->text(), QStringLiteral("Night"));
        // Words typed afterwards go to the new name; the old one never comes back.
        QTest::keyClicks(w.editor, "more ");
        QVERIFY(w.entries->flushPendingSave());
        QCOMPARE(readBytes(w.in("Night.txt")), QByteArray("new more old"));
        QVERIFY(!QFile::exists(w.in("Day.txt")));
    }

    void duplicatesAreNumberedAndAMoveLetsGoOfTheEntry()
    {
        Window w;
        writeBytes(w.in("Day.txt"), "mine");
        QDir().mkpath(w.in("Day"));
        writeBytes(w.in("Day/photo.jpg"), "jpeg");
        const QDateTime created(QDate(2020, 1, 2), QTime(3, 4), Qt::UTC);
        QVERIFY(CreationDate::carry(w.in("Day.txt"), created));
        writeBytes(w.there.path() + QStringLiteral("/Day.txt"), "theirs");
        w.open();
        w.select(0);
        QVERIFY(w.ops->duplicateEntry(QStringLiteral("Day.txt"), 1));
        QVERIFY(w.ops->duplicateEntry(QStringLiteral("Day.txt"), 1));
        QVERIFY(w.ops->moveEntry(QStringLiteral("Day.txt"), 1));
        QCOMPARE(filesIn(w.there.path()),
                 QStringList({"Day (2)", "Day (2).txt", "Day (3)", "Day (3).txt", "Day (4)",
                              "Day (4).txt", "Day.txt"}));
        QCOMPARE(readBytes(w.there.path() + QStringLiteral("/Day (3)/photo.jpg")), "jpeg");
        QCOMPARE(CreationDate::of(w.there.path() + QStringLiteral("/Day (2).txt")).toUTC(),
                 created);
        QCOMPARE(readBytes(w.there.path() + QStringLiteral("/Day (4).txt")), QByteArray("mine"));
        QCOMPARE(filesIn(w.here.path()), QStringList());
        QCOMPARE(w.title->text(), QString());
        QVERIFY(!w.entries->editor().isEditable());
    }

    void deletingTheSelectedFirstEntryTrashesItAndSelectsNothing()
    {
        Window w;
        for (const char *name : {"A.txt", "B.txt", "C.txt"})
            writeBytes(w.in(QString::fromLatin1(name)), name);
        QDir().mkpath(w.in("A"));
        w.open();
        w.select(0);
        QVERIFY(w.ops->deleteEntry(QStringLiteral("A.txt")));
        QCOMPARE(w.entries->listofFiles(), QStringList({"B.txt", "C.txt"}));
        QCOMPARE(w.entries->selectedRow(), -1);
        const QString trash =
            QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
            QStringLiteral("/Trash");
        QCOMPARE(filesIn(trash + QStringLiteral("/files")), QStringList({"A", "A.txt"}));
        QCOMPARE(filesIn(trash + QStringLiteral("/info")),
                 QStringList({"A.trashinfo", "A.txt.trashinfo"}));

        // Deleting another row than the selected one keeps the selected entry open.
        w.select(1);
        QVERIFY(w.ops->deleteEntry(QStringLiteral("B.txt")));
        QCOMPARE(w.entries->listofFiles(), QStringList({"C.txt"}));
        QCOMPARE(w.editor->toPlainText(), QStringLiteral("C.txt"));
    }
};

VELLOX_TEST_MAIN(TestEntryOperations)
#include "tst_entryoperations.moc"
