#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "editor/widgets/EnhancedTextView.h"
#include "library/NotebookRegistry.h"
#include "notes/NoteTitles.h"
#include "notes/QuickNoteFile.h"
#include "notes/widgets/NoteSheet.h"
#include "notes/widgets/NotesTableController.h"
#include "notes/widgets/QuickNotesModel.h"
#include "notes/widgets/QuickNotesView.h"
#include "support/TestHelpers.h"
#include "support/TestHome.h"
#include "widgets/Alert.h"
#include "widgets/MessageBar.h"

#include <QListView>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

// The notes list in a real window offscreen: sheets, the editor, links and a damaged file.
class TestNotesController : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<UserDefaults> m_defaults;
    std::unique_ptr<NotebookRegistry> m_registry;
    std::unique_ptr<QWidget> m_window;
    EnhancedTextView *m_editor = nullptr;
    MessageBar *m_bar = nullptr;
    NotesTableController *m_notes = nullptr;
    QDateTime m_now;

    QString notesFile() const { return m_dir->filePath("_notes.stfn"); }
    QStringList textsOnDisk() const
    {
        QStringList texts;
        for (const QuickNote &note : QuickNoteFile::read(notesFile()).notes)
            texts << note.text;
        return texts;
    }
    void addNotes(const QList<QuickNote> &notes)
    {
        for (const QuickNote &note : notes)
            QVERIFY(m_notes->store().append(note));
    }

private Q_SLOTS:
    void initTestCase()
    {
        Alert::setResponder([](const AlertRequest &) { return 0; });
    }
    void cleanupTestCase() { Alert::setResponder({}); }

    void init()
    {
        Alert::clearHistory();
        m_dir = std::make_unique<QTemporaryDir>();
        m_defaults = std::make_unique<UserDefaults>(m_dir->filePath("settings.conf"));
        m_defaults->registerDefaults(UserDefaults::defaultsTable());
        m_registry = std::make_unique<NotebookRegistry>(*m_defaults);
        m_window = std::make_unique<QWidget>();
        auto *layout = new QVBoxLayout(m_window.get());
        m_bar = new MessageBar;
        m_editor = new EnhancedTextView(*m_defaults);
        m_editor->setEditable(true);
        m_notes = new NotesTableController(*m_defaults, *m_registry, m_window.get());
        m_notes->setEditor(m_editor);
        m_notes->setMessageBar(m_bar);
        const QString path = m_dir->path() + "/";
        m_notes->setCurrentNotebook([path] { return path; }, [] { return 0; });
        m_now = QDateTime(QDate(2026, 11, 15), QTime(14, 5));
        m_notes->setClock([this] { return m_now; });
        layout->addWidget(m_bar);
        layout->addWidget(m_editor);
        layout->addWidget(m_notes->view());
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        m_notes->loadData();
    }

    void cleanup()
    {
        m_window.reset();
        m_registry.reset();
        m_defaults.reset();
        m_dir.reset();
    }

    // A note begun before midnight keeps the time it was begun and the date it was kept.
    void addSheetTakesTimeAtOpeningAndDateAtOk()
    {
        const QLocale locale = QLocale::system();
        m_now = QDateTime(QDate(2026, 11, 15), QTime(23, 59));
        QTest::mouseClick(m_notes->view()->addButton(), Qt::LeftButton);
        NoteSheet *sheet = m_notes->addSheet();
        QVERIFY(sheet && sheet->isVisible());
        QTest::keyClicks(sheet->textView(), "call the printer shop");
        m_now = QDateTime(QDate(2026, 11, 16), QTime(0, 1));
        QTest::mouseClick(sheet->okButton(), Qt::LeftButton);

        QVERIFY(!sheet->isVisible());
        QVERIFY(sheet->textView()->toPlainText().isEmpty());
        const auto onDisk = QuickNoteFile::read(notesFile()).notes;
        QCOMPARE(onDisk.size(), 1);
        QCOMPARE(onDisk.first().text, QString("call the printer shop"));
        QCOMPARE(onDisk.first().title,
                 locale.toString(QTime(23, 59), QLocale::ShortFormat) + " - " +
                     locale.toString(QDate(2026, 11, 16), QLocale::LongFormat));
    }

    // Editing replaces the text, keeps the title, and the row is measured again.
    void editAndRemoveKeepRowsAligned()
    {
        addNotes({{"t1", "one"}, {"t2", "two"}, {"t3", "three"}});
        QuickNotesModel *model = m_notes->model();
        m_notes->view()->selectRow(1);
        QTRY_VERIFY(model->cachedHeight(1) > 0);
        m_notes->openEditSheet();
        NoteSheet *sheet = m_notes->editSheet();
        QCOMPARE(sheet->textView()->toPlainText(), QString("two"));
        sheet->textView()->setPlainText("two\nlonger\nand longer");
        QTest::mouseClick(sheet->okButton(), Qt::LeftButton);
        QCOMPARE(m_notes->store().note(1), (QuickNote{"t2", "two\nlonger\nand longer"}));
        QVERIFY(model->document(1)->toPlainText().contains("and longer"));
        QTRY_VERIFY(model->cachedHeight(1) > model->cachedHeight(0));

        // Removing the last row selects the one before it.
        m_notes->view()->selectRow(2);
        m_notes->removeSelectedNote();
        QCOMPARE(m_notes->view()->selectedRow(), 1);
        QCOMPARE(textsOnDisk(), (QStringList{"one", "two\nlonger\nand longer"}));
        QCOMPARE(model->rowCount(), 2);
        QCOMPARE(model->document(0)->toPlainText(), QString("t1\none"));

        // Dragging one note out carries its text, not its title.
        std::unique_ptr<QMimeData> mime(model->mimeData({model->index(0)}));
        QCOMPARE(mime->text(), QString("one"));
        QVERIFY(mime->hasFormat(QuickNotesModel::RowsMimeType));
    }

    // Sending notes is one undoable step that the save path hears about, like typing.
    void sendingIntoTheEditor()
    {
        const QString today = NoteTitles::dateText(m_now, QLocale::system());
        addNotes({{"08:00 - Friday, 13 November 2026", "old"},
                  {"09:00 - " + today, "first"},
                  {"10:00 - " + today, "second"}});
        m_editor->setString("ab");
        m_editor->setSelectedRange(1, 0);
        int notices = 0;
        QObject observer;
        NotificationCenter::defaultCenter().addObserver(
            &observer, Notifications::TextChangedShouldBeSaved,
            [&notices](const Notification &) { ++notices; });

        m_notes->sendAllNotesFromTodayToTextfield();
        QCOMPARE(m_editor->string(), QString("afirst\n\nsecond\n\nb"));
        QTRY_VERIFY(notices > 0);
        m_editor->undo();
        QCOMPARE(m_editor->string(), QString("ab"));

        m_notes->view()->selectRow(0);
        m_notes->sendSelectedNoteToTextViewByShortCut();
        QCOMPARE(m_editor->string(), QString("aoldb"));

        // A locked or absent entry refuses, with a beep; an empty list sends nothing quietly.
        QSignalSpy beeps(m_notes, &NotesTableController::beeped);
        m_editor->setEditable(false);
        m_notes->sendAllNotesToTextfield();
        QCOMPARE(beeps.count(), 1);
        QCOMPARE(m_editor->string(), QString("aoldb"));
        m_editor->setEditable(true);
        m_notes->deleteAllNotes();
        m_notes->sendAllNotesToTextfield();
        QCOMPARE(beeps.count(), 1);
        QCOMPARE(m_editor->string(), QString("aoldb"));
        QCOMPARE(textsOnDisk(), QStringList());
    }

    void linksBecomeNotes()
    {
        const QString sep = "VelloxImportSeperator";
        QVERIFY(m_notes->handleURLEvent("x-velloxbookmarknote:utf-8" + sep + sep +
                                        "https%3A%2F%2Fex.org%2Fp" + sep + "seen%20there"));
        const QuickNote note = m_notes->store().note(0);
        QVERIFY(note.title.endsWith(" - Webnote"));
        QCOMPARE(note.text, QString("seen there\nLink: https://ex.org/p"));
        QCOMPARE(textsOnDisk(), QStringList{note.text});

        QVERIFY(m_notes->view()->linkButton()->isHidden());
        m_notes->view()->selectRow(0);
        QVERIFY(!m_notes->view()->linkButton()->isHidden());
        QCOMPARE(m_notes->currentLink(), QString("https://ex.org/p"));

        QVERIFY(!m_notes->handleURLEvent("x-velloxBookmarkNote:utf-8" + sep + sep + "a" + sep +
                                         "100%"));
        QCOMPARE(Alert::history().size(), 1);
        QCOMPARE(Alert::history().first().title, QString("Import Error"));
        QCOMPARE(m_notes->store().count(), 1);

        QVERIFY(!m_notes->handleURLEvent("x-velloxBookmarkNote:utf-8" + sep + "a"));
        QVERIFY(m_bar->hasMessage(m_bar->currentTopic()));
        QCOMPARE(Alert::history().size(), 1);
        QCOMPARE(m_notes->store().count(), 1);
    }

    // A notes file that cannot be read is reported once and never written; a captured
    // note's text stays at hand.
    void damagedFileDetachesTheList()
    {
        const QByteArray damaged("<?xml version=\"1.0\"?><plist><array><string>x");
        writeBytes(notesFile(), damaged);
        QSignalSpy shown(m_bar, &MessageBar::messageShown);
        m_notes->loadData();
        QCOMPARE(shown.count(), 1);
        QVERIFY(m_bar->currentText().contains(notesFile()));

        const QString sep = "VelloxImportSeperator";
        QVERIFY(!m_notes->handleURLEvent("x-velloxBookmarkNote:utf-8" + sep + sep + "a" + sep +
                                         "kept%20text"));
        auto *copy = m_bar->findChild<QPushButton *>("notesCopyNoteButton");
        QVERIFY(copy);
        m_notes->view()->selectRow(0);
        m_notes->removeSelectedNote();
        m_notes->deleteAllNotes();
        m_notes->addNewNote();
        QVERIFY(!m_notes->addSheet());
        QCOMPARE(readBytes(notesFile()), damaged);
    }
};

VELLOX_TEST_MAIN(TestNotesController)
#include "tst_notescontroller.moc"
