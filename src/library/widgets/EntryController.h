#pragma once

#include "library/EntryDocument.h"
#include "library/widgets/EntryEditorAdapter.h"
#include "library/widgets/EntryListController.h"
#include "library/widgets/EntrySession.h"

#include <QDateTime>
#include <QObject>
#include <QPointer>

class QLabel;
class QLineEdit;
class QListView;
class QPlainTextEdit;
class UserDefaults;

// The open entry in the main window: loads the selected entry into the editor and saves it
// back 1.0 s after the last change, through EntryDocument. Its text is never dropped: a
// save that fails keeps the text and says so (saveFailed), a file changed elsewhere is never
// written over (changedOnDisk), and whatever would replace the editor's text asks first
// while the text could not be saved (mayLeaveEntry).
class EntryController : public QObject
{
    Q_OBJECT
public:
    EntryController(QPlainTextEdit *editor, QLineEdit *titleField, QListView *entryList,
                    QLabel *counter, UserDefaults &defaults, QObject *parent = nullptr);
    ~EntryController() override;

    // Asks before the window closes with unsavable text, and follows its activation.
    void attachToWindow(QWidget *window);

    // False (nothing changed) when the user kept the unsaved text of the open entry.
    bool setNotebookPath(const QString &pathWithTrailingSlash, bool relist = true);
    QString notebookPath() const { return m_list->notebookPath(); }
    // An empty, editable editor for a new entry with this title.
    bool prepareNewEntry(const QString &title);

    EntryListController *list() const { return m_list; }
    EntrySession *session() const { return m_session; }
    EntryListModel *model() const { return m_list->model(); }
    EntryEditorAdapter &editor() { return m_editor; }
    QStringList listofFiles() const { return m_list->listofFiles(); }
    QString selectedFileName() const { return m_list->selectedFileName(); }
    int selectedRow() const { return m_list->selectedRow(); }
    QString loadedString() const { return m_session->loadedString(); }
    bool currentDocumentHasEdits() const { return m_session->currentDocumentHasEdits(); }
    bool checkForFolderModificaion() const { return m_checkForFolderModificaion; }
    const EntryDocument &document() const { return m_session->document(); }
    // Edits that are not on disk yet.
    bool hasUnsavedText() const { return m_session->hasUnsavedText(); }
    // True while the open entry's last save failed or met a file changed elsewhere.
    bool lastSaveFailed() const { return m_session->lastSaveFailed(); }

    static int getCursorPositionForDocument(const QString &path);

public Q_SLOTS:
    void loadFilesForSelectedNoticeBlock();
    void loadFilesForSelectedNoticeBlockAndSelectItemWithFilename(const QString &name);
    void tableViewSelectionDidChange();
    // True when the text is on disk afterwards.
    bool saveEditedString() { return m_session->save(); }
    // Saves pending edits now; true when nothing is left unsaved.
    bool flushPendingSave() { return m_session->flush(); }
    // Before anything replaces the editor's text: saves, and when that fails asks
    // Save As… / Discard Changes / Cancel. False means: leave everything as it is.
    bool mayLeaveEntry() { return m_session->mayLeave(); }
    void windowDidBecomeMain();
    void windowDidResignMain();

Q_SIGNALS:
    void previewShouldRender(const QString &text, const QString &entryPath);
    void previewShouldBlank();
    void spellingShouldBeChecked();
    void entrySaved(const QString &path);
    void displayRowsRebuilt();
    // reason "" = the entry is writable again.
    void readOnlyChanged(const QString &title, const QString &reason);
    // problem "" = the title is fine again.
    void titleProblemChanged(const QString &problem);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    int language() const;
    void onUserSelectedRow(int row);
    void onTitleChanged(const QString &title);
    void onSaved(const QString &path, bool created, bool whileFlushing);
    void openEntry(const QString &fileName);
    void showText(const QString &text, int location, int length);
    void showHint();
    void startNewEntry();
    void setReadOnly(const QString &reason);
    bool checkFileLock(const QString &path);

    UserDefaults &m_defaults;
    EntryEditorAdapter m_editor;
    QPointer<QPlainTextEdit> m_editorView;
    QPointer<QLineEdit> m_titleField;
    QPointer<QWidget> m_window;
    EntryListController *m_list;
    EntrySession *m_session;

    QString m_openFileName; // the list item the editor shows, "" for a new entry
    QString m_readOnlyReason;
    QString m_lockFileLastPathChecked;
    QDateTime m_folderLastModDateWhenLeaving = QDateTime::currentDateTime();
    bool m_checkForFolderModificaion = false;
    bool m_ignoreTitle = false;
    // The open entry was opened by typing its title, not chosen in the list.
    bool m_openedByTitle = false;
};
