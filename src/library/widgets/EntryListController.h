#pragma once

#include "library/EntryDirectory.h"

#include <QFutureWatcher>
#include <QListView>
#include <QObject>
#include <QPointer>
#include <QStringList>

class EntryListDelegate;
class EntryListModel;
class UserDefaults;

// The entry list of the current notebook: which files are entries, their display rows, the
// selection, and the checks of the notebook folder itself (missing, locked). Selection
// changes made here are not announced as the user's; userSelectedRow() is.
class EntryListController : public QObject
{
    Q_OBJECT
public:
    EntryListController(QListView *list, UserDefaults &defaults, QObject *parent = nullptr);
    ~EntryListController() override;

    void setNotebookPath(const QString &pathWithTrailingSlash);
    QString notebookPath() const { return m_notebookPath; }
    QString notebookFolder() const;
    QString extension() const;

    // Relists the folder and rebuilds every row (the selection is cleared).
    void relist();
    // Relists and selects the row of name; a name at position 0 (or missing) selects the row
    // that was selected before instead, deliberately.
    void relistAndSelect(const QString &name);
    // Relists keeping the file that was selected selected.
    void relistKeepingSelection();
    // Shows only these names (the title field's search), none selected; relist() shows the
    // whole notebook again.
    void showOnly(const QStringList &names);
    bool isNarrowed() const { return m_narrowed; }
    // The display rows again, away from the UI thread (after a save).
    void rebuildRowsInBackground();
    void formatTableItemsForDisplay();

    // True when the folder exists; otherwise the missing-notebook alert was shown.
    bool checkFolderExists();
    // The lock alert, once per folder and run. True when the folder stays locked.
    bool checkFolderLock();
    bool isFolderLocked() const;

    void selectRow(int row);
    void clearSelection();
    int selectedRow() const;
    QString selectedFileName() const;
    int rowOf(const QString &fileName) const { return int(m_listofFiles.indexOf(fileName)); }

    EntryListModel *model() const { return m_model; }
    QListView *view() const { return m_list; }
    QStringList listofFiles() const { return m_listofFiles; }
    QList<EntryDisplayRow> listofFilesDisplay() const { return m_listofFilesDisplay; }
    int heightOfFileTableRow() const { return m_heightOfFileTableRow; }
    QString lockFolderLastPathChecked() const { return m_lockFolderLastPathChecked; }

Q_SIGNALS:
    // The user (or the accessibility layer) selected a row; -1 when the selection was cleared.
    void userSelectedRow(int row);
    void displayRowsRebuilt();

private:
    void applyDisplayList(const EntryDisplayList &list, bool reset);

    QPointer<QListView> m_list;
    UserDefaults &m_defaults;
    EntryListModel *m_model;
    EntryListDelegate *m_delegate;
    QFutureWatcher<EntryDisplayList> m_rebuild;
    quint64 m_generation = 0;
    bool m_quiet = false;
    bool m_narrowed = false;

    QString m_notebookPath;
    QStringList m_listofFiles;
    QList<EntryDisplayRow> m_listofFilesDisplay;
    int m_heightOfFileTableRow = 17;
    QString m_lockFolderLastPathChecked;
};
