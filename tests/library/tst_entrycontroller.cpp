#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "editor/widgets/Vellox_EnhancedTextView.h"
#include "library/CursorPositionStore.h"
#include "library/EntryListModel.h"
#include "library/FileLock.h"
#include "library/widgets/EntryController.h"
#include "library/widgets/EntryMessages.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"
#include "widgets/Alert.h"
#include "widgets/MessageBar.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

namespace {
void setModified(const QString &path, const QDateTime &date)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(date, QFileDevice::FileModificationTime));
}

// The main window's part that shows entries, as the application builds it.
struct EntryWindow
{
    QWidget window;
    QPlainTextEdit *editor = new Vellox_EnhancedTextView(UserDefaults::standard());
    QLineEdit *title = new QLineEdit;
    QListView *list = new QListView;
    QLabel *counter = new QLabel;
    MessageBar *bar = new MessageBar;
    std::unique_ptr<EntryController> controller;

    explicit EntryWindow(const QString &notebook)
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(title);
        layout->addWidget(list);
        layout->addWidget(bar);
        layout->addWidget(editor);
        layout->addWidget(counter);
        controller = std::make_unique<EntryController>(editor, title, list, counter,
                                                       UserDefaults::standard());
        new EntryMessages(controller.get(), bar, title, controller.get());
        controller->attachToWindow(&window);
        window.resize(600, 500);
        window.show();
        controller->setNotebookPath(notebook);
    }

    void select(int row)
    {
        list->selectionModel()->setCurrentIndex(list->model()->index(row, 0),
                                                QItemSelectionModel::ClearAndSelect);
    }
    void type(const QString &text, int delay = -1)
    {
        editor->setFocus();
        bool ascii = true;
        for (const QChar ch : text)
            ascii &= ch.unicode() < 128;
        // Key events exist for ASCII only; other letters arrive as the input method does.
        if (ascii)
            QTest::keyClicks(editor, text, Qt::NoModifier, delay);
        else
            editor->insertPlainText(text);
    }
    void append(const QString &text)
    {
        editor->moveCursor(QTextCursor::End);
        type(text);
    }
};
} // namespace

class TestEntryController : public QObject
{
    Q_OBJECT

    QTemporaryDir *m_dir = nullptr;
    QString m_notebook;
    QList<AlertRequest> m_alerts;
    int m_answer = 0;

private Q_SLOTS:
    void init()
    {
        TestHome::instance()->reset();
        delete m_dir;
        m_dir = new QTemporaryDir;
        m_notebook = m_dir->path() + "/";
        m_alerts.clear();
        m_answer = 0;
        Alert::setResponder([this](const AlertRequest &request) {
            m_alerts << request;
            return m_answer;
        });
    }

    void cleanupTestCase()
    {
        delete m_dir;
        Alert::setResponder({});
    }

    void listsEntriesAndLoadsTheSelectedOne()
    {
        writeBytes(m_notebook + "Alpha.txt", "Hello world");
        writeBytes(m_notebook + "Beta.txt", "Second entry");
        writeBytes(m_notebook + "_notes.stfn", "notes");
        CursorPositionStore::saveCurrentCursorPostionAtIndex(6, m_notebook + "Alpha.txt");
        QStringList dates;
        NotificationCenter::defaultCenter().addObserver(
            this, Notifications::SetnewDate, [&](const Notification &n) {
                dates << n.userInfo.value(Notifications::NewDateStringKey).toString();
            });

        EntryWindow w(m_notebook);
        EntryController &c = *w.controller;
        QCOMPARE(c.listofFiles(), QStringList({"Alpha.txt", "Beta.txt"}));
        QVERIFY(c.model()
                    ->data(c.model()->index(0), Qt::DisplayRole)
                    .toString()
                    .startsWith("  Alpha\n    Created: "));
        QVERIFY(!c.editor().isEditable());
        QCOMPARE(w.editor->toPlainText(), QString("Enter a title to write a note"));

        QSignalSpy preview(&c, &EntryController::previewShouldRender);
        w.select(0);
        QCOMPARE(w.title->text(), QString("Alpha"));
        QCOMPARE(w.editor->toPlainText(), QString("Hello world"));
        QVERIFY(c.editor().isEditable());
        QCOMPARE(c.editor().selectedLocation(), 6);
        QCOMPARE(w.counter->text(), QString("2:11"));
        QCOMPARE(dates.last(), QString("Alpha"));
        QCOMPARE(preview.count(), 1);
        QCOMPARE(preview.at(0).at(1).toString(), m_notebook + "Alpha.txt");
        QVERIFY(m_alerts.isEmpty());
        NotificationCenter::defaultCenter().removeObserver(this);
    }

    void keystrokesWriteOnceOneSecondAfterTheLast()
    {
        const QString alpha = m_notebook + "Alpha.txt";
        writeBytes(alpha, "Alpha\xC2\xA0text");
        writeBytes(m_notebook + "Beta.txt", "Beta");
        setModified(alpha, QDateTime::currentDateTime().addDays(-2));
        CursorPositionStore::saveCurrentCursorPostionAtIndex(99, alpha);
        EntryWindow w(m_notebook);
        QVERIFY(!w.controller->editor().isEditable());
        w.select(0);
        QCOMPARE(w.controller->editor().string(), QString::fromUtf8("Alpha\u00a0text"));
        QCOMPARE(w.controller->editor().selectedLocation(), 10); // clamped to the text
        QVERIFY(!w.controller->hasUnsavedText());
        QSignalSpy saved(w.controller.get(), &EntryController::entrySaved);
        w.type("abcd", 60);
        QElapsedTimer sinceLast; // started before the last key, so it never runs short
        sinceLast.start();
        w.type("e");
        QCOMPARE(saved.count(), 0);
        QVERIFY(saved.wait(2000));
        // Coarse timers may fire up to 5% early.
        QVERIFY2(sinceLast.elapsed() >= 950, qPrintable(QString::number(sinceLast.elapsed())));
        QVERIFY(!saved.wait(1300)); // once only
        QCOMPARE(readBytes(alpha), QByteArray("Alpha\xC2\xA0textabcde"));
        QVERIFY(QFileInfo(alpha).lastModified().secsTo(QDateTime::currentDateTime()) < 10);
        QCOMPARE(CursorPositionStore::getCursorPositionForDocument(alpha), 15);
        QVERIFY(!w.controller->currentDocumentHasEdits());
        // The list's rows are rebuilt off the UI thread and then show the new date.
        QTRY_VERIFY(w.controller->model()
                        ->data(w.controller->model()->index(0), Qt::DisplayRole)
                        .toString()
                        .contains(EntryDirectory::dateText(QDateTime::currentDateTime()).left(6)));

        // Leaving the entry writes at once; merely opening one writes nothing.
        w.type("!");
        w.select(1);
        QCOMPARE(readBytes(alpha), QByteArray("Alpha\xC2\xA0textabcde!"));
        QCOMPARE(w.controller->editor().string(), QString("Beta"));
        QVERIFY(!saved.wait(1300));
        QCOMPARE(readBytes(m_notebook + "Beta.txt"), QByteArray("Beta"));
    }

    // Title, notebook and window changes flush first too; the main window's tests cover them.
    void aRelistFlushesFirstEvenUnderANewExtension()
    {
        writeBytes(m_notebook + "Alpha.txt", "Alpha");
        EntryWindow w(m_notebook);
        w.select(0);
        w.append(" relist");
        NotificationCenter::defaultCenter().post(Notifications::ReloadFilesForSelectedNoticeBlock);
        QCOMPARE(readBytes(m_notebook + "Alpha.txt"), QByteArray("Alpha relist"));
        QCOMPARE(w.editor->toPlainText(), QString("Enter a title to write a note"));
        QCOMPARE(w.title->text(), QString());

        // The words go under the extension the entry was loaded with.
        w.select(0);
        w.append(" more");
        UserDefaults::standard().setValue(Settings::DefaultFileExtensionForEntries, QString("md"));
        NotificationCenter::defaultCenter().post(Notifications::ReloadFilesForSelectedNoticeBlock);
        QCOMPARE(readBytes(m_notebook + "Alpha.txt"), QByteArray("Alpha relist more"));
        QVERIFY(!QFile::exists(m_notebook + "Alpha.md"));
        QVERIFY(w.controller->listofFiles().isEmpty());
    }

    void latin1EntryIsWrittenBackAsLatin1()
    {
        writeBytes(m_notebook + "Caf\xC3\xA9.txt", "Le caf\xE9 du matin");
        EntryWindow w(m_notebook);
        w.select(0);
        QCOMPARE(w.editor->toPlainText(), QString::fromUtf8("Le café du matin"));
        QCOMPARE(w.controller->document().format().encoding, 5);
        w.append(QString::fromUtf8(" ñ"));
        w.controller->flushPendingSave();
        QCOMPARE(readBytes(m_notebook + QString::fromUtf8("Café.txt")),
                 QByteArray("Le caf\xE9 du matin \xF1"));
        QCOMPARE(w.controller->document().format().encoding, 5);
    }

    void newPlainEntryIsUtf8AndEmptyingDeletesIt()
    {
        writeBytes(m_notebook + "Alpha.txt", "Alpha");
        EntryWindow w(m_notebook);
        w.select(0);
        w.controller->prepareNewEntry("New day");
        QCOMPARE(w.title->text(), QString("New day"));
        QVERIFY(w.controller->editor().isEditable());
        w.type(QString::fromUtf8("Grüße"));
        QSignalSpy saved(w.controller.get(), &EntryController::entrySaved);
        QTRY_COMPARE_WITH_TIMEOUT(saved.count(), 1, 3000);
        QCOMPARE(readBytes(m_notebook + "New day.txt"), QByteArray("Gr\xC3\xBC\xC3\x9F"
                                                                   "e"));
        QCOMPARE(w.controller->listofFiles(), QStringList({"Alpha.txt", "New day.txt"}));
        QCOMPARE(w.controller->selectedFileName(), QString("New day.txt"));
        QCOMPARE(w.editor->toPlainText(), QString::fromUtf8("Grüße"));
        QCOMPARE(CursorPositionStore::getCursorPositionForDocument(m_notebook + "New day.txt"), 5);

        w.editor->selectAll();
        QTest::keyClick(w.editor, Qt::Key_Delete);
        QTRY_COMPARE_WITH_TIMEOUT(saved.count(), 2, 3000);
        QVERIFY(!QFile::exists(m_notebook + "New day.txt"));
        QVERIFY(QFile::exists(m_notebook + "Alpha.txt"));
    }

    // Layout, listing and opening of bundles are checked through the main window.
    void anEmptiedBundleLosesOnlyItsTextFile()
    {
        UserDefaults::standard().setValue(Settings::DefaultFileExtensionForEntries,
                                          QString("textbundle"));
        writeBytes(m_notebook + "plain.txt", "not listed");
        EntryWindow w(m_notebook);
        QVERIFY(w.controller->listofFiles().isEmpty());
        w.controller->prepareNewEntry("Trip");
        w.type("Hello");
        QSignalSpy saved(w.controller.get(), &EntryController::entrySaved);
        QTRY_COMPARE_WITH_TIMEOUT(saved.count(), 1, 3000);
        const QString bundle = m_notebook + "Trip.textbundle";
        QCOMPARE(readBytes(bundle + "/text.markdown"), QByteArray("Hello"));
        QCOMPARE(w.controller->listofFiles(), QStringList({"Trip.textbundle"}));

        w.editor->selectAll();
        QTest::keyClick(w.editor, Qt::Key_Backspace);
        w.controller->flushPendingSave();
        QVERIFY(!QFile::exists(bundle + "/text.markdown"));
        QVERIFY(QFile::exists(bundle + "/info.json"));
        QVERIFY(QFileInfo(bundle + "/assets").isDir());
        QVERIFY(m_alerts.isEmpty());
    }

    void bundleLanguagesAndBrokenInfo()
    {
        UserDefaults::standard().setValue(Settings::DefaultFileExtensionForEntries,
                                          QString("textbundle"));
        QDir().mkpath(m_notebook + "A.textbundle");
        QDir().mkpath(m_notebook + "B.textbundle");
        QDir().mkpath(m_notebook + "C.textbundle");
        writeBytes(m_notebook + "A.textbundle/text.bbc", "[b]A[/b]");
        writeBytes(m_notebook + "A.textbundle/info.json", "{\"type\": \"com.tessaly.bbcode\"}");
        writeBytes(m_notebook + "B.textbundle/text.markdown", "B text");
        writeBytes(m_notebook + "B.textbundle/info.json", "{ not json");
        writeBytes(m_notebook + "C.textbundle/text.txt", "C text");
        EntryWindow w(m_notebook);

        w.select(0);
        QCOMPARE(w.editor->toPlainText(), QString("[b]A[/b]"));
        QCOMPARE(m_alerts.size(), 1);
        QCOMPARE(m_alerts.at(0).title, qtTrId("TEXTBUNDLE_MIXED_MARKUPS_TITLE"));
        QVERIFY(m_alerts.at(0).message.contains("BBCode"));
        QVERIFY(m_alerts.at(0).message.indexOf("BBCode") <
                m_alerts.at(0).message.indexOf("Markdown"));
        QCOMPARE(UserDefaults::standard().value(Settings::TypographyUseMarkupLanguage), 1);

        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^ERROR: .*info.json"));
        w.select(1);
        QCOMPARE(w.editor->toPlainText(), QString("B text"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^ERROR: .*info.json"));
        w.select(2);
        QCOMPARE(w.editor->toPlainText(), QString("C text"));
        QCOMPARE(m_alerts.size(), 1);
    }

    void relistKeepsTheSelectedRowForANameAtTheTop()
    {
        for (const char *name : {"A.txt", "B.txt", "C.txt"})
            writeBytes(m_notebook + name, name);
        EntryWindow w(m_notebook);
        w.select(2);
        w.controller->loadFilesForSelectedNoticeBlockAndSelectItemWithFilename("A.txt");
        QCOMPARE(w.controller->selectedRow(), 2);
        w.controller->loadFilesForSelectedNoticeBlockAndSelectItemWithFilename("B.txt");
        QCOMPARE(w.controller->selectedRow(), 1);
        QCOMPARE(w.editor->toPlainText(), QString("B.txt"));
        w.controller->loadFilesForSelectedNoticeBlockAndSelectItemWithFilename("missing.txt");
        QCOMPARE(w.controller->selectedRow(), 1);
    }

    void lockedFolderAndFile()
    {
        writeBytes(m_notebook + "Alpha.txt", "Alpha");
        QString error;
        if (!FileLock::setImmutable(m_dir->path(), true, &error))
            QSKIP(qPrintable("no immutable flag here: " + error));
        m_answer = 1; // unlock
        {
            EntryWindow w(m_notebook);
            QCOMPARE(m_alerts.size(), 1);
            QCOMPARE(m_alerts.at(0).title, qtTrId("FOLDER_LOCKED"));
            QCOMPARE(m_alerts.at(0).buttons, QStringList({qtTrId("FOLDER_LOCKED_KEEP_LOCKED"),
                                                          qtTrId("FOLDER_LOCKED_UNLOCK")}));
            QVERIFY(!FileLock::isImmutable(m_dir->path()));
            // Once per notebook and run.
            FileLock::setImmutable(m_dir->path(), true);
            w.controller->loadFilesForSelectedNoticeBlock();
            QCOMPARE(m_alerts.size(), 1);
            FileLock::setImmutable(m_dir->path(), false);
        }

        m_alerts.clear();
        m_answer = 0; // keep locked
        QVERIFY(FileLock::setImmutable(m_notebook + "Alpha.txt", true));
        EntryWindow w(m_notebook);
        w.select(0);
        QCOMPARE(m_alerts.size(), 1);
        QCOMPARE(m_alerts.at(0).title, qtTrId("FILE_LOCKED"));
        QVERIFY(FileLock::isImmutable(m_notebook + "Alpha.txt"));
        // Kept locked means read-only, and the bar says why.
        QVERIFY(!w.controller->editor().isEditable());
        QCOMPARE(w.bar->currentTopic(), QString("readonly"));
        QVERIFY(FileLock::setImmutable(m_notebook + "Alpha.txt", false));
        w.select(-1);
        w.select(0);
        QVERIFY(w.controller->editor().isEditable());
        QVERIFY(!w.bar->isVisibleTo(&w.window));
    }

    void aFailedSaveKeepsTheTextUntilItCanBeWritten()
    {
        writeBytes(m_notebook + "Alpha.txt", "Alpha");
        writeBytes(m_notebook + "Beta.txt", "Beta");
        EntryWindow w(m_notebook);
        w.select(0);
        w.append(" and more");
        // The folder goes away under us (an unplugged disk, a sync client): no save can work.
        const QString away = m_dir->path() + "-away";
        QVERIFY(QDir().rename(m_dir->path(), away));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^FILEWRITING-ERROR: .*Alpha.txt"));
        QVERIFY(!w.controller->flushPendingSave());
        QVERIFY(!QFileInfo::exists(m_dir->path())); // never re-created empty
        QCOMPARE(w.bar->currentTopic(), QString("save"));
        QVERIFY(w.bar->currentText().contains("Alpha"));
        QVERIFY(w.bar->findChild<QPushButton *>("messageBarSaveAs"));

        // Another entry, with the text unsaved: Cancel stays, Discard would drop it.
        m_answer = 2;
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^FILEWRITING-ERROR: "));
        w.select(1);
        QCOMPARE(m_alerts.size(), 1);
        QCOMPARE(m_alerts.at(0).buttons.size(), 3);
        QCOMPARE(w.editor->toPlainText(), QString("Alpha and more"));
        QCOMPARE(w.controller->selectedFileName(), QString("Alpha.txt"));
        // Closing the window is refused the same way.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^FILEWRITING-ERROR: "));
        QVERIFY(!w.window.close());
        QVERIFY(w.window.isVisible());

        // Retry once the folder is back.
        QVERIFY(QDir().rename(away, m_dir->path()));
        auto *retry = w.bar->findChild<QPushButton *>("messageBarRetry");
        QVERIFY(retry);
        retry->click();
        QTRY_COMPARE(readBytes(m_notebook + "Alpha.txt"), QByteArray("Alpha and more"));
        QTRY_VERIFY(!w.bar->isVisibleTo(&w.window));
        QVERIFY(!w.controller->lastSaveFailed());
    }

    void saveAsRescuesTextThatCannotBeSaved()
    {
        writeBytes(m_notebook + "Alpha.txt", "Alpha");
        writeBytes(m_notebook + "Beta.txt", "Beta");
        QTemporaryDir elsewhere;
        EntryWindow w(m_notebook);
        w.controller->session()->setSaveAsPathChooser(
            [&](const QString &name) { return elsewhere.filePath(name); });
        w.select(0);
        w.append(" rescued");
        const QString away = m_dir->path() + "-away";
        QVERIFY(QDir().rename(m_dir->path(), away));
        m_answer = 0; // Save As…
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^FILEWRITING-ERROR: "));
        QVERIFY(w.controller->mayLeaveEntry());
        QCOMPARE(readBytes(elsewhere.filePath("Alpha.txt")), QByteArray("Alpha rescued"));
        QCOMPARE(w.bar->currentTopic(), QString("copy"));
        QVERIFY(QDir().rename(away, m_dir->path()));
    }

    void outsideChangesAreReloadedOrReportedNeverOverwritten()
    {
        const QString alpha = m_notebook + "Alpha.txt";
        writeBytes(alpha, "Alpha");
        EntryWindow w(m_notebook);
        w.select(0);
        // Nothing unsaved here: their text comes in, the cursor stays.
        w.controller->editor().setSelectedRange(3, 0);
        writeBytes(alpha, "Alpha from elsewhere");
        QTRY_COMPARE(w.editor->toPlainText(), QString("Alpha from elsewhere"));
        QCOMPARE(w.controller->editor().selectedLocation(), 3);

        // Unsaved words here: nothing is written over theirs, and the bar asks.
        w.append(" mine");
        writeBytes(alpha, "Theirs, longer than before");
        QTRY_COMPARE(w.bar->currentTopic(), QString("conflict"));
        QVERIFY(!w.controller->flushPendingSave());
        QCOMPARE(readBytes(alpha), QByteArray("Theirs, longer than before"));

        // Keep Mine: ours is saved, theirs kept beside the entry.
        w.bar->findChild<QPushButton *>("messageBarKeepMine")->click();
        QTRY_COMPARE(readBytes(alpha), QByteArray("Alpha from elsewhere mine"));
        const QStringList aside =
            QDir(m_notebook).entryList({"Alpha (*).txt"}, QDir::Files, QDir::Name);
        QCOMPARE(aside.size(), 1);
        QCOMPARE(readBytes(m_notebook + aside.first()), QByteArray("Theirs, longer than before"));

        // Reload Theirs: their text replaces ours on request.
        w.type(" again");
        writeBytes(alpha, "Third version");
        QTRY_COMPARE(w.bar->currentTopic(), QString("conflict"));
        w.bar->findChild<QPushButton *>("messageBarReloadTheirs")->click();
        QTRY_COMPARE(w.editor->toPlainText(), QString("Third version"));
        QVERIFY(!w.controller->hasUnsavedText());
    }

    void nothingIsWrittenWithoutAUsableFolderOrTitle()
    {
        // A notebook record without a folder, or with one that is gone: reported as missing,
        // and no path is formed from it.
        const QString gone = m_notebook + "gone/";
        for (const QString &notebook : {QString(), gone}) {
            m_alerts.clear();
            EntryWindow w(notebook);
            QCOMPARE(m_alerts.size(), 1);
            QCOMPARE(m_alerts.at(0).title, qtTrId("CRIT_NOTEBOOK_DOESNT_EXIST_TITLE"));
            QCOMPARE(m_alerts.at(0).icon, QMessageBox::Critical);
            QCOMPARE(w.controller->model()->rowCount(), 0);
            w.title->setText("Root entry");
            w.type("words");
            w.controller->flushPendingSave();
            QVERIFY(!QFile::exists("/Root entry.txt"));
            QVERIFY(!QFileInfo::exists(gone));
        }
        // A title too long for a file name: said at once, and the words stay in the editor.
        EntryWindow w(m_notebook);
        QSignalSpy problems(w.controller.get(), &EntryController::titleProblemChanged);
        w.title->setText(QString(300, QLatin1Char('x')));
        QVERIFY(!problems.isEmpty());
        QVERIFY(!problems.last().at(0).toString().isEmpty());
        w.type("kept");
        w.controller->flushPendingSave();
        QCOMPARE(w.editor->toPlainText(), QString("kept"));
        QCOMPARE(filesIn(m_dir->path()), QStringList());
        w.title->setText("Short");
        QVERIFY(problems.last().at(0).toString().isEmpty());
        QVERIFY(w.controller->flushPendingSave());
        QCOMPARE(readBytes(m_notebook + "Short.txt"), QByteArray("kept"));
    }

    void emptyAndLargeEntries()
    {
        writeBytes(m_notebook + "Empty.txt", "");
        QByteArray big;
        while (big.size() < 10 * 1024 * 1024)
            big += "Ein langer Tag, und noch ein Satz dazu. \xC3\xA4\n";
        writeBytes(m_notebook + "Huge.txt", big);
        EntryWindow w(m_notebook);
        w.select(0);
        QCOMPARE(w.editor->toPlainText(), QString());
        QCOMPARE(w.counter->text(), QString("0:0"));
        w.select(1);
        // So long a text is still being built while the window goes on; it reads whole
        // meanwhile, a save keeps all of it, and the first key waits for it.
        auto *view = static_cast<Vellox_EnhancedTextView *>(w.editor);
        QVERIFY(view->isLoading());
        QCOMPARE(view->string(), QString::fromUtf8(big));
        QVERIFY(w.controller->flushPendingSave());
        QCOMPARE(readBytes(m_notebook + "Huge.txt"), big);
        w.editor->setFocus();
        QTest::keyClick(w.editor, Qt::Key_End, Qt::ControlModifier);
        w.type("x");
        QCOMPARE(w.editor->document()->characterCount() - 1, QString::fromUtf8(big).size() + 1);
        QVERIFY(w.controller->flushPendingSave());
        QCOMPARE(readBytes(m_notebook + "Huge.txt"), big + "x");
    }
};

VELLOX_TEST_MAIN(TestEntryController)
#include "tst_entrycontroller.moc"
