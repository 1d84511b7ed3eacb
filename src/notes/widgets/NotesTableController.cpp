#include "NotesTableController.h"

#include "NoteSheet.h"
#include "QuickNoteDelegate.h"
#include "QuickNotesModel.h"
#include "QuickNotesView.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "editor/widgets/EnhancedTextView.h"
#include "notes/BookmarkLink.h"
#include "notes/NoteTitles.h"
#include "widgets/Alert.h"
#include "widgets/MessageBar.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QItemSelectionModel>
#include <QListView>
#include <QPlainTextEdit>
#include <QToolButton>
#include <QUrl>

namespace {
const QString kTopic = QStringLiteral("quick-notes");
} // namespace

NotesTableController::NotesTableController(UserDefaults &defaults, NotebookRegistry &registry,
                                           QObject *parent)
    : QObject(parent)
    , m_defaults(defaults)
    , m_registry(registry)
    , m_capture(m_store, registry)
    , m_model(new QuickNotesModel(m_store, this))
    , m_view(new QuickNotesView)
{
    m_view->list()->setModel(m_model);
    m_view->list()->setItemDelegate(new QuickNoteDelegate(*m_model, m_view));
    applyAppearance();

    connect(m_view->addButton(), &QToolButton::clicked, this, &NotesTableController::addNewNote);
    connect(m_view->editButton(), &QToolButton::clicked, this,
            &NotesTableController::openEditSheet);
    connect(m_view->removeButton(), &QToolButton::clicked, this,
            &NotesTableController::removeSelectedNote);
    connect(m_view->linkButton(), &QToolButton::clicked, this,
            &NotesTableController::callWebsiteButtonAction);
    connect(m_view, &QuickNotesView::rowDoubleClicked, this,
            &NotesTableController::sendSelectedNoteToTextfield);
    connect(m_view->list()->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &NotesTableController::updateLinkButton);
    connect(m_model, &QAbstractItemModel::modelReset, this,
            &NotesTableController::updateLinkButton);

    connect(&m_store, &QuickNoteStore::damagedFileFound, this,
            [this](const QString &path) { reportDamaged(path); });
    connect(&m_store, &QuickNoteStore::saveFailed, this,
            [this](const QString &path, const QString &error) {
                if (!m_messageBar)
                    return;
                //% "The quick notes could not be saved to “%1”: %2. They are kept while
                // Vellox runs; the next change tries again."
                m_messageBar->showMessage(kTopic, MessageBar::Error,
                                          qtTrId("NOTES_SAVE_FAILED").arg(path, error));
            });

    NotificationCenter::defaultCenter().addObserver(
        this, Notifications::DiaryNewSelectedReloadNotes,
        [this](const Notification &) { diarychangedReloadNotes(); });
    // Font sizes and the dark style chosen in Preferences show at once.
    NotificationCenter::defaultCenter().addObserver(
        this, Notifications::TextViewAttributesChanged,
        [this](const Notification &) { applyAppearance(); });
}

NotesTableController::~NotesTableController()
{
    // The view lives in the window, which may outlive this controller.
    delete m_view;
}

void NotesTableController::setCurrentNotebook(std::function<QString()> savePath,
                                              std::function<int()> index)
{
    m_savePath = std::move(savePath);
    m_notebookIndex = std::move(index);
}

void NotesTableController::setEditor(EnhancedTextView *editor)
{
    m_editor = editor;
}

void NotesTableController::setMessageBar(MessageBar *bar)
{
    m_messageBar = bar;
}

QDateTime NotesTableController::now() const
{
    return m_clock ? m_clock() : QDateTime::currentDateTime();
}

QString NotesTableController::today() const
{
    return NoteTitles::dateText(now(), QLocale::system());
}

void NotesTableController::beep()
{
    QApplication::beep();
    Q_EMIT beeped();
}

void NotesTableController::applyAppearance()
{
    const bool dark = m_defaults.value(Settings::UseBlackDocument);
    m_model->setAppearance({m_defaults.value(Settings::NotesDisplayDateFontSize),
                            m_defaults.value(Settings::NotesDisplayTextFontSize), dark});
    m_view->setDark(dark);
}

void NotesTableController::loadData()
{
    if (m_messageBar)
        m_messageBar->removeMessage(kTopic);
    m_store.load(m_savePath ? m_savePath() : QString());
}

void NotesTableController::diarychangedReloadNotes()
{
    // Also sent when the notes' font sizes change.
    applyAppearance();
    loadData();
}

void NotesTableController::reportDamaged(const QString &path)
{
    if (!m_messageBar)
        return;
    //% "The quick notes in “%1” could not be read. The file is left as it is, and notes of
    // this notebook cannot be added or changed until it can be read."
    m_messageBar->showMessage(kTopic, MessageBar::Warning, qtTrId("NOTES_FILE_DAMAGED").arg(path));
}

void NotesTableController::reportDetached(const QString &what, const QString &noteText)
{
    beep();
    if (!m_messageBar)
        return;
    QList<MessageBar::Button> buttons;
    if (!noteText.isEmpty()) {
        //% "Copy Note"
        const QString copy = qtTrId("NOTES_COPY_NOTE");
        //% "Copy the note's text to the clipboard"
        buttons.append({copy, qtTrId("NOTES_COPY_NOTE_TIP"),
                        [noteText] { QApplication::clipboard()->setText(noteText); },
                        QStringLiteral("notesCopyNoteButton")});
    }
    //% "%1 The quick notes in “%2” could not be read, and the file is left as it is."
    m_messageBar->showMessage(kTopic, MessageBar::Warning,
                              qtTrId("NOTES_DETACHED").arg(what, m_store.filePath()), buttons);
}

// Add ----------------------------------------------------------------------------------------

void NotesTableController::addNewNote()
{
    if (m_store.isDetached()) {
        //% "No note can be added to this notebook."
        reportDetached(qtTrId("NOTES_CANNOT_ADD"), QString());
        return;
    }
    if (!m_addSheet) {
        m_addSheet = new NoteSheet(NoteSheet::Add, m_view->window());
        connect(m_addSheet, &QDialog::accepted, this, &NotesTableController::perfromAddNewNote);
        connect(m_addSheet, &QDialog::rejected, this,
                &NotesTableController::cancelInsertingNewNote);
    }
    const auto labels = NoteTitles::sheetLabels(now(), QLocale::system());
    m_addSheetTime = labels.time;
    m_addSheet->setLabels(labels.time, labels.day, labels.weekday, labels.month);
    m_addSheet->open();
    m_addSheet->textView()->setFocus();
}

void NotesTableController::perfromAddNewNote()
{
    if (!m_addSheet)
        return;
    // The time of opening, the date of keeping: a note begun before midnight is dated after.
    const QuickNote note{NoteTitles::typedTitle(m_addSheetTime, today()),
                         m_addSheet->textView()->toPlainText()};
    if (!m_store.append(note)) {
        //% "The note was not added."
        reportDetached(qtTrId("NOTES_NOT_ADDED"), note.text);
        return;
    }
    m_addSheet->hide();
    m_addSheet->textView()->clear();
}

void NotesTableController::cancelInsertingNewNote()
{
    if (!m_addSheet)
        return;
    m_addSheet->hide();
    m_addSheet->textView()->clear();
}

// Edit and remove ----------------------------------------------------------------------------

void NotesTableController::openEditSheet()
{
    const int row = m_view->selectedRow();
    if (row < 0 || m_store.isDetached()) {
        beep();
        return;
    }
    if (!m_editSheet) {
        m_editSheet = new NoteSheet(NoteSheet::Edit, m_view->window());
        connect(m_editSheet, &QDialog::accepted, this, &NotesTableController::editNotePreformEdit);
        connect(m_editSheet, &QDialog::rejected, this, &NotesTableController::cancelEditNote);
    }
    m_editedRow = row;
    m_editSheet->textView()->setPlainText(m_store.note(row).text);
    m_editSheet->open();
    m_editSheet->textView()->setFocus();
}

void NotesTableController::editNotePreformEdit()
{
    if (!m_editSheet)
        return;
    const QString text = m_editSheet->textView()->toPlainText();
    if (!m_store.replaceText(m_editedRow, text)) {
        //% "The note was not changed."
        reportDetached(qtTrId("NOTES_NOT_CHANGED"), text);
        return;
    }
    // The longer or shorter text needs its row measured again.
    m_view->list()->doItemsLayout();
    m_view->selectRow(m_editedRow);
    m_editSheet->hide();
    m_editSheet->textView()->clear();
}

void NotesTableController::cancelEditNote()
{
    if (!m_editSheet)
        return;
    m_editSheet->hide();
    m_editSheet->textView()->clear();
}

void NotesTableController::removeSelectedNote()
{
    const int row = m_view->selectedRow();
    if (row < 0) {
        beep();
        return;
    }
    if (!m_store.remove(row))
        return;
    // The note that moved up takes the place; after the last one, the one before it.
    m_view->selectRow(qMin(row, m_store.count() - 1));
}

// Sending into the editor --------------------------------------------------------------------

bool NotesTableController::insertIntoEditor(const QStringList &texts)
{
    if (!m_editor || !m_editor->isEditable() || m_editor->isReadOnly()) {
        beep();
        return false;
    }
    if (texts.isEmpty())
        return true;
    {
        // One undo step, and saved like typing: the primitive schedules the change notice.
        TextEditorModel::Step step(m_editor->model());
        for (const QString &text : texts)
            m_editor->undoCustomInsertionInRange(m_editor->selectedRange(), text);
    }
    m_editor->ensureCursorVisible();
    m_editor->setFocus();
    return true;
}

void NotesTableController::sendSelectedNoteToTextfield(int row)
{
    if (row < 0 || row >= m_store.count())
        return;
    insertIntoEditor({m_store.note(row).text});
}

void NotesTableController::sendSelectedNoteToTextViewByShortCut()
{
    if (!m_editor || !m_editor->isEditable()) {
        beep();
        return;
    }
    const int row = m_view->selectedRow();
    if (row < 0) {
        beep();
        return;
    }
    insertIntoEditor({m_store.note(row).text});
}

void NotesTableController::sendAllNotesToTextfield()
{
    QStringList texts;
    for (const QuickNote &note : m_store.notes())
        texts.append(note.text + QStringLiteral("\n\n"));
    insertIntoEditor(texts);
}

void NotesTableController::sendAllNotesFromTodayToTextfield()
{
    const QString date = today();
    QStringList texts;
    for (const QuickNote &note : m_store.notes()) {
        if (NoteTitles::isFromToday(note.title, date))
            texts.append(note.text + QStringLiteral("\n\n"));
    }
    insertIntoEditor(texts);
}

// Clearing -----------------------------------------------------------------------------------

void NotesTableController::deleteAllNotesExceptToday()
{
    m_store.removeAllExceptFrom(today());
    m_view->list()->clearSelection();
}

void NotesTableController::deleteAllNotes()
{
    m_store.removeAll();
}

void NotesTableController::activateNotesTable()
{
    m_view->list()->setFocus();
    if (m_view->selectedRow() < 0 && m_store.count() > 0)
        m_view->selectRow(0);
}

// Links --------------------------------------------------------------------------------------

void NotesTableController::updateLinkButton()
{
    const int row = m_view->selectedRow();
    m_currentLink = row >= 0 ? NoteTitles::linkOfNote(m_store.note(row).text) : QString();
    m_view->linkButton()->setVisible(!m_currentLink.isEmpty());
    m_view->linkButton()->setToolTip(m_currentLink.isEmpty() ? qtTrId("NOTES_LINK_TIP")
                                                             : m_currentLink);
}

void NotesTableController::callWebsiteButtonAction()
{
    if (!m_currentLink.isEmpty())
        QDesktopServices::openUrl(QUrl(m_currentLink));
}

// Capture ------------------------------------------------------------------------------------

bool NotesTableController::addNotesFromStatusBar(int chosenNotebook, const QString &timeLabel,
                                                 const QString &text)
{
    const QuickNote note{NoteTitles::typedTitle(timeLabel, today()), text};
    const int shown = m_notebookIndex ? m_notebookIndex() : 0;
    const QuickNoteCapture::Result result = m_capture.addNote(chosenNotebook, shown, note);
    if (!result.damagedCopy.isEmpty() && m_messageBar) {
        //% "The quick notes file “%1” could not be read. It was copied to “%2”, and a new one
        // holds the note just taken."
        m_messageBar->showMessage(
            kTopic, MessageBar::Warning,
            qtTrId("NOTES_DAMAGED_COPIED").arg(result.path, result.damagedCopy));
    }
    if (!result.added) {
        if (chosenNotebook == shown) {
            reportDetached(qtTrId("NOTES_NOT_ADDED"), text);
        } else if (m_messageBar) {
            //% "The note could not be written to “%1”: %2"
            m_messageBar->showMessage(kTopic, MessageBar::Error,
                                      qtTrId("NOTES_WRITE_FAILED").arg(result.path, result.error));
        }
        return false;
    }
    NotificationCenter::defaultCenter().post(Notifications::StatusBarAddNoteEndClear, this);
    return true;
}

void NotesTableController::cancelAddNotesFromStatusBar()
{
    NotificationCenter::defaultCenter().post(Notifications::StatusBarAddNoteEndClear, this);
}

bool NotesTableController::handleURLEvent(const QString &link)
{
    const BookmarkLink parsed = BookmarkLink::parse(link);
    switch (parsed.status()) {
    case BookmarkLink::Status::NotOurScheme:
        return false;
    case BookmarkLink::Status::MissingFields:
        if (m_messageBar) {
            //% "A link from the browser held no note: it lacks the page's address or text.
            // Make the bookmarklet again from Help › Capture Links from Your Browser."
            m_messageBar->showMessage(kTopic, MessageBar::Warning, qtTrId("NOTES_LINK_INCOMPLETE"));
        }
        return false;
    case BookmarkLink::Status::Undecodable:
        Alert::show(m_view ? m_view->window() : nullptr, QStringLiteral("Import Error"),
                    QStringLiteral("The selected message couldn't be imported due unknow "
                                   "textencoding"),
                    {QStringLiteral("OK")}, QMessageBox::Critical);
        return false;
    case BookmarkLink::Status::Ok:
        break;
    }
    const QuickNote note = QuickNoteCapture::noteFromLink(parsed, now(), QLocale::system());
    if (!m_store.append(note)) {
        //% "The note from the browser was not added."
        reportDetached(qtTrId("NOTES_LINK_NOT_ADDED"), note.text);
        return false;
    }
    return true;
}
