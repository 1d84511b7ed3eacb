#pragma once

#include "library/EntryDirectory.h"
#include "library/widgets/EntryEditorAdapter.h"

#include <QDateTime>
#include <QFutureWatcher>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <QUrl>

class EntryListDelegate;
class EntryListModel;
class QLabel;
class QLineEdit;
class QListView;
class QPlainTextEdit;

// The entries of the current notebook in the main window: lists them, loads the selected
// one into the editor and saves it back 1.0 s after the last change. Whatever replaces the
// editor's text or the title it would be saved under (another entry, a title edit, another
// notebook, closing, quitting) first saves pending edits to the entry they belong to.
class EntryController : public QObject
{
    Q_OBJECT
public:
    EntryController(QPlainTextEdit *editor, QLineEdit *titleField, QListView *entryList,
                    QLabel *counter, QObject *parent = nullptr);
    ~EntryController() override;

    // Saves pending edits when the window closes and follows its activation
    // (windowDidBecomeMain / windowDidResignMain).
    void attachToWindow(QWidget *window);

    // The notebook folder, with its trailing "/". Pending edits are saved first; with
    // relist, the new notebook's entries are listed (loadFilesForSelectedNoticeBlock).
    void setNotebookPath(const QString &pathWithTrailingSlash, bool relist = true);
    QString notebookPath() const { return m_notebookPath; }

    // Makes the editor ready for a new entry with this title: empty, editable, saved on the
    // first change under the title.
    void prepareNewEntry(const QString &title);

    EntryListModel *model() const { return m_model; }
    EntryEditorAdapter &editor() { return m_editor; }

    // Window state.
    QStringList listofFiles() const { return m_listofFiles; }
    QList<EntryDisplayRow> listofFilesDisplay() const { return m_listofFilesDisplay; }
    int heightOfFileTableRow() const { return m_heightOfFileTableRow; }
    QString loadedString() const { return m_loadedString; }
    bool blockFileLoad() const { return m_blockFileLoad; }
    void setBlockFileLoad(bool block) { m_blockFileLoad = block; }
    QDateTime lastModificationDateOfCurrentFile() const
    {
        return m_lastModificationDateOfCurrentFile;
    }
    int selectedEncodingForFileSaving() const { return m_selectedEncodingForFileSaving; }
    bool currentDocumentHasEdits() const { return m_currentDocumentHasEdits; }
    QString lockFolderLastPathChecked() const { return m_lockFolderLastPathChecked; }
    QString lockFileLastPathChecked() const { return m_lockFileLastPathChecked; }
    QDateTime folderLastModDateWhenLeaving() const { return m_folderLastModDateWhenLeaving; }
    bool checkForFolderModificaion() const { return m_checkForFolderModificaion; }

    // The file name of the selected row, or "".
    QString selectedFileName() const;
    int selectedRow() const;
    // True while edits exist that are not yet on disk.
    bool hasUnsavedText() const;

    static void saveCurrentCursorPostionAtIndex(int index, const QString &path);
    static int getCursorPositionForDocument(const QString &path);

public Q_SLOTS:
    void loadFilesForSelectedNoticeBlock();
    void loadFilesForSelectedNoticeBlockAndSelectItemWithFilename(const QString &name);
    void formatTableItemsForDisplay();
    void tableViewSelectionDidChange();
    void textHasChangedAndShouldBeSaved();
    void saveEditedString();
    // Saves pending edits now, to the entry they belong to; true when something was saved.
    bool flushPendingSave();
    void updateWordAndCharCounter();
    void windowDidBecomeMain();
    void windowDidResignMain();

Q_SIGNALS:
    // The text and the path of the file it came from (inside the bundle for a TextBundle).
    void previewShouldRender(const QString &text, const QString &entryPath);
    void previewShouldBlank();
    void spellingShouldBeChecked();
    // After a save (path of the text file written, or deleted when the text was empty).
    void entrySaved(const QString &path);
    // After the background rebuild of the rows following a save has reached the list.
    void displayRowsRebuilt();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct EntryRef
    {
        QString notebookPath;
        QString title;
        QString extension;
        bool isValid() const { return !notebookPath.isEmpty(); }
    };

    QString currentExtension() const;
    bool isTextBundleMode(const QString &extension) const;
    void saveEditedStringFor(const EntryRef &ref);
    void relistEntries();
    void relistKeepingSelectedFile();
    void selectRow(int row);
    void onSelectionChanged();
    void onTitleChanged(const QString &title);
    void checkFolderLock(const QString &folder);
    void checkFileLock(const QString &path);
    void applyDisplayList(const EntryDisplayList &list, bool reset);
    void rebuildDisplayRowsInBackground();
    void showHint();

    EntryEditorAdapter m_editor;
    QPointer<QPlainTextEdit> m_editorView;
    QPointer<QLineEdit> m_titleField;
    QPointer<QListView> m_list;
    QPointer<QLabel> m_counter;
    QPointer<QWidget> m_window;
    EntryListModel *m_model;
    EntryListDelegate *m_delegate;
    QTimer m_saveTimer;
    QFutureWatcher<EntryDisplayList> m_rebuild;
    quint64 m_listGeneration = 0;

    QString m_notebookPath;
    QStringList m_listofFiles;
    QList<EntryDisplayRow> m_listofFilesDisplay;
    int m_heightOfFileTableRow = 17;
    QString m_loadedString;
    bool m_blockFileLoad = false;
    QDateTime m_lastModificationDateOfCurrentFile;
    int m_selectedEncodingForFileSaving = 0;
    bool m_currentDocumentHasEdits = false;
    QString m_lockFolderLastPathChecked;
    QString m_lockFileLastPathChecked;
    QDateTime m_folderLastModDateWhenLeaving = QDateTime::currentDateTime();
    bool m_checkForFolderModificaion = false;

    // The entry the editor's text belongs to, and the file it was read from.
    EntryRef m_entryRef;
    QString m_openFileName;
    bool m_editorDirty = false;
    bool m_saving = false;
    bool m_flushing = false;
    bool m_ignoreSelection = false;
    bool m_relisting = false;
    bool m_ignoreTitle = false;
    // The open entry was opened by typing its title, not chosen in the list.
    bool m_openedByTitle = false;
};
