#pragma once

#include <QStringList>
#include <QVariantMap>
#include <QWidget>

class QCheckBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTableView;
class QToolButton;
class TabActionTableModel;
class UserDefaults;

// The tab-action window: a one-column table of abbreviations and, beside it, the expansion of
// the selected one. Every change reaches the file as soon as the user moves on (another row,
// another window, closing), so the typing engine, which reads the file on each Tab, sees it
// at once. A file that could not be read is shown as an empty list and is not written over
// until the user actually changes something (and even then a copy of it is kept).
class OneClickStyleEditorController : public QWidget
{
    Q_OBJECT
public:
    // defaults: where the choice of file is read and stored.
    explicit OneClickStyleEditorController(UserDefaults &defaults, QWidget *parent = nullptr);
    ~OneClickStyleEditorController() override;

    QString pathToTabActionsfile() const { return m_pathToTabActionsfile; }
    QVariantMap listOfTabActions() const { return m_listOfTabActions; }
    QStringList tableDisplayArray() const { return m_tableDisplayArray; }
    QTableView *stylesTable() const { return m_stylesTable; }
    QPlainTextEdit *styleEditTextView() const { return m_styleEditTextView; }
    // The abbreviation whose expansion the text area shows (empty when none).
    QString shownTabAction() const { return m_shownName; }
    // The message under the list about the file (unreadable, missing, not saved), or empty.
    QString fileProblem() const;

public Q_SLOTS:
    // Shows the window (or brings it forward), loading the list from the file currently in
    // use: whatever happened to the file meanwhile is what the window shows.
    void showWindow();
    void setPathToTabActions();
    void loadTabActions();
    // Writes the list if it differs from the file; false (with a message shown) on failure.
    bool saveStyleCollection();
    void saveNewStyle();
    void addNewStyle();
    void removeStyle();
    void updateSelectedMarkupStyleItem();
    // Rename row to newName, or explain with an alert why not (and reopen the name editor).
    void renameTabAction(int row, const QString &newName);
    // Ask for a file with a save or open dialog, then use it.
    void setNewTabActionFile();
    void chooseTabActionFile();
    // The work behind the two dialogs: start a new empty external file at path, or use the
    // existing one; either way the external file becomes the one in use.
    void createExternalTabActionFile(const QString &path);
    void useExternalTabActionFile(const QString &path);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void buildInterface();
    int selectedRow() const;
    void selectName(const QString &name);
    void rebuildDisplay(const QString &nameToSelect);
    void storeShownExpansion();
    QString textAreaContent() const;
    void reopenNameEditor(int row);
    void setUseExternalFile(bool on);
    void settingChanged(const QString &key);
    void showFileProblem(const QString &message);
    void refreshFileControls();
    // Keeps what the user typed, then shows the file as it is now.
    void reloadFromFile();
    QString fileStamp() const;

    UserDefaults &m_defaults;
    QString m_pathToTabActionsfile;
    QVariantMap m_listOfTabActions;
    // What the file held when last read or written: saving an unchanged list is skipped, so
    // merely looking at an unreadable file never replaces it.
    QVariantMap m_savedTabActions;
    // The file's size and date when last read or written: a change by someone else since
    // is seen when the window comes forward again.
    QString m_fileStamp;
    QStringList m_tableDisplayArray;
    QString m_shownName;
    bool m_updatingSelection = false;

    TabActionTableModel *m_model = nullptr;
    QTableView *m_stylesTable = nullptr;
    QPlainTextEdit *m_styleEditTextView = nullptr;
    QToolButton *m_addButton = nullptr;
    QToolButton *m_removeButton = nullptr;
    QCheckBox *m_useExternalBox = nullptr;
    QPushButton *m_newFileButton = nullptr;
    QPushButton *m_chooseFileButton = nullptr;
    QLabel *m_pathLabel = nullptr;
    QLabel *m_problemLabel = nullptr;
};
