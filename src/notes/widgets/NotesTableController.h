#pragma once

#include "notes/QuickNote.h"
#include "notes/QuickNoteCapture.h"
#include "notes/QuickNoteStore.h"
#include "notes/widgets/NoteSheet.h"
#include "notes/widgets/QuickNotesView.h"

#include <QDateTime>
#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>

class EnhancedTextView;
class MessageBar;
class NotebookRegistry;
class QuickNotesModel;
class UserDefaults;

// The quick notes of the notebook shown in the main window: the list under the entries, the
// add and edit sheets, sending notes into the entry editor, clearing old notes, and notes
// taken from the tray panel or from a bookmarklet link.
class NotesTableController : public QObject
{
    Q_OBJECT
public:
    NotesTableController(UserDefaults &defaults, NotebookRegistry &registry,
                         QObject *parent = nullptr);
    ~NotesTableController() override;

    // The notebook on display: its folder (ending in "/") and its index in the registry.
    void setCurrentNotebook(std::function<QString()> savePath, std::function<int()> index);
    void setEditor(EnhancedTextView *editor);
    void setMessageBar(MessageBar *bar);
    // The moment notes are taken at; the clock by default.
    void setClock(std::function<QDateTime()> clock) { m_clock = std::move(clock); }

    QuickNotesView *view() const { return m_view; }
    QuickNoteStore &store() { return m_store; }
    QuickNoteCapture &capture() { return m_capture; }
    QuickNotesModel *model() const { return m_model; }
    NoteSheet *addSheet() const { return m_addSheet; }
    NoteSheet *editSheet() const { return m_editSheet; }
    QString currentLink() const { return m_currentLink; }

    void loadData();
    void diarychangedReloadNotes();

    void addNewNote();
    void perfromAddNewNote();
    void cancelInsertingNewNote();
    void openEditSheet();
    void editNotePreformEdit();
    void cancelEditNote();
    void removeSelectedNote();
    void sendSelectedNoteToTextfield(int row);
    void sendSelectedNoteToTextViewByShortCut();
    void sendAllNotesToTextfield();
    void sendAllNotesFromTodayToTextfield();
    void deleteAllNotesExceptToday();
    void deleteAllNotes();
    void activateNotesTable();
    void callWebsiteButtonAction();

    // The tray panel's OK: a note titled with the time its panel opened at and the date of
    // now, into the notebook chosen there. False when it could not be kept (the panel then
    // keeps its text). Both end the capture with "StatusBarAddNoteEndClearNotification".
    bool addNotesFromStatusBar(int chosenNotebook, const QString &timeLabel, const QString &text);
    void cancelAddNotesFromStatusBar();

    // A link of the bookmarklet's scheme (any case); other arguments are ignored. True when
    // a note was added.
    bool handleURLEvent(const QString &link);

Q_SIGNALS:
    // A command could not act (the desktop's beep sounds too).
    void beeped();

private:
    QDateTime now() const;
    QString today() const;
    void beep();
    bool insertIntoEditor(const QStringList &texts);
    void updateLinkButton();
    void applyAppearance();
    void reportDetached(const QString &what, const QString &noteText);
    void reportDamaged(const QString &path);

    UserDefaults &m_defaults;
    NotebookRegistry &m_registry;
    QuickNoteStore m_store;
    QuickNoteCapture m_capture;
    QuickNotesModel *m_model;
    QPointer<QuickNotesView> m_view;
    QPointer<NoteSheet> m_addSheet;
    QPointer<NoteSheet> m_editSheet;
    QPointer<EnhancedTextView> m_editor;
    QPointer<MessageBar> m_messageBar;
    std::function<QString()> m_savePath;
    std::function<int()> m_notebookIndex;
    std::function<QDateTime()> m_clock;
    QString m_addSheetTime;
    int m_editedRow = -1;
    QString m_currentLink;
};
