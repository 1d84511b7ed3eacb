#pragma once

#include <QStringList>
#include <QWidget>

class QFileDialog;
class QFileSystemWatcher;
class QListWidget;
class QTimer;
class QToolButton;
class UserDefaults;

// The floating style panel: the ".css" files of the user's style folder, one of which is
// the chosen style of the preview. Choosing a row stores its name under "SelectedCSSStyle"
// and announces "CSSStyleChangePerformReload".
class CSSStykeController : public QWidget
{
    Q_OBJECT
public:
    explicit CSSStykeController(UserDefaults &defaults, QWidget *parent = nullptr);

    // Brings the panel to the front and gives it the keyboard.
    void showCSSStyleSelectorHudPanel();

    // Lists the style folder and selects the chosen style (the last row of that name), or
    // the first row when it is gone.
    void loadItems();
    // Asks for style sheets to copy into the folder (a dialog on the panel).
    void addNewCSSStyle();
    // Deletes the selected style's file and lists the folder again.
    void removeCSSStyle();
    // Copies files into the style folder under their own names; a style already there keeps
    // its file. Then lists the folder again.
    void copyStylesIntoFolder(const QStringList &files);

    int numberOfRowsInTableView() const;
    QString tableView(int row) const;
    void tableViewSelectionDidChange();

    QStringList displayItems() const { return m_displayItems; }
    QListWidget *cssStyleTable() const { return m_cssStyleTable; }
    QFileDialog *openFileDialog() const;

private:
    int selectedRow() const;
    void updateButtons();
    void watchStyleFolder();
    void styleFolderChanged();

    UserDefaults &m_defaults;
    QStringList m_displayItems;
    QListWidget *m_cssStyleTable = nullptr;
    QToolButton *m_addButton = nullptr;
    QToolButton *m_removeButton = nullptr;
    QToolButton *m_folderButton = nullptr;
    // Styles edited or added outside the application show at once; editors that save by
    // replacing the file send bursts of events, hence the short settling delay.
    QFileSystemWatcher *m_watcher = nullptr;
    QTimer *m_folderChangeTimer = nullptr;
    bool m_chosenStyleEdited = false;
};
