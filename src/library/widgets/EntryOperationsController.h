#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

class EntryController;
class MessageBar;
class NotebookRegistry;
class RenameSheet;
class SideFileEditor;
class UserDefaults;

// What the user does to whole entries of the current notebook: next and previous, rename,
// move or duplicate to another notebook, delete to the trash, show in the file browser,
// insert the date. Context-menu commands act on the row that was clicked (contextRow), the
// Entry menu's on the selected one. Whatever fails leaves the files as they were and says so
// in the message bar; the open entry's pending edits are saved before its file moves.
class EntryOperationsController : public QObject
{
    Q_OBJECT
public:
    EntryOperationsController(EntryController *entries, NotebookRegistry &registry,
                              MessageBar *messageBar, UserDefaults &defaults,
                              QObject *parent = nullptr);

    // The row under the pointer while the context menu is open; -1 otherwise.
    void setContextRow(int row) { m_contextRow = row; }
    int contextRow() const { return m_contextRow; }
    // The clicked row, else the selected one; its file name ("" for none).
    QString targetFileName() const;
    // The path of an entry of the current notebook.
    QString pathOf(const QString &fileName) const;

    void selectNextItemInTable();
    void selectPreviousItemInTable();

    // Shows the rename sheet for the target entry.
    RenameSheet *tableviewContextRenameFile();
    bool renameEntry(const QString &fileName, const QString &newTitle);
    // The target entry into the notebook at that registry index.
    bool moveEntry(const QString &fileName, int notebookIndex);
    bool duplicateEntry(const QString &fileName, int notebookIndex);
    bool tableViewContextFileMoveAction(const QString &fileName, int notebookIndex,
                                        bool deleteOriginal);
    bool deleteEntry(const QString &fileName);

    // A side editor window on the entry's text file (a bundle's text item).
    SideFileEditor *tableviewContextOpenFile(const QString &fileName);

    // The file another application opens for the entry: a bundle's text item.
    QString openWithPath(const QString &fileName) const;
    bool editCurrentEntryInAnotherEditor(const QString &fileName, const QString &applicationId);

    void showFileInFileBrowser(const QString &fileName);
    void showAttachmentsInFileBrowser(const QString &fileName);
    void insertCurrentDateAndTime();

Q_SIGNALS:
    // A command could not act (the system beep sounds as well).
    void beeped();
    // Something was shown in the file browser: the item (selected) or the folder.
    void revealed(const QString &path);

private:
    void beep();
    void fail(const QString &text);
    void clearMessage();
    // Saves the open entry first when it is this one; false (and said so) when that failed.
    bool flushIfOpen(const QString &fileName);
    bool isOpen(const QString &fileName) const;

    EntryController *m_entries;
    NotebookRegistry &m_registry;
    QPointer<MessageBar> m_messageBar;
    UserDefaults &m_defaults;
    int m_contextRow = -1;
};
