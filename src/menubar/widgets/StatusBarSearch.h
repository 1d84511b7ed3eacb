#pragma once

#include <QFutureWatcher>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <atomic>

class QComboBox;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class UserDefaults;

// The capture panel's search pane: pick a notebook, narrow its entries by name and read one
// without opening the main window. Read-only. Folders are listed and entries read on a
// worker thread, so a notebook of thousands of entries or a huge entry never holds the
// panel; a result that arrives after the user moved on is dropped.
class StatusBarSearch : public QWidget
{
    Q_OBJECT
public:
    explicit StatusBarSearch(UserDefaults &defaults, QWidget *parent = nullptr);
    ~StatusBarSearch() override;

    // The notebook pop-up and the list again, after the notebooks changed.
    void reloadEverything();
    void diaryMenuInit();
    // Lists the chosen notebook's entries, all of them.
    void loadFiles();
    // The pop-up's action: the new notebook's entries, nothing selected, nothing shown.
    void selectNotebook(int index);
    // The search field's action: all entries at once for a blank text, otherwise the
    // filtered list 0.3 s after the last keystroke.
    void performSearch();
    void performStatusBarSearch();
    // Shows the selected entry's text.
    void tableViewSelectionDidChange();

    QComboBox *notebookSelection() const { return m_notebookSelection; }
    QLineEdit *searchForField() const { return m_searchForField; }
    QListWidget *noteItems() const { return m_noteItems; }
    QPlainTextEdit *contentView() const { return m_contentView; }
    // File names the list shows.
    QStringList items() const { return m_items; }

Q_SIGNALS:
    // The list was refilled.
    void itemsChanged();
    // The content view shows the selected entry (or was emptied).
    void entryShown();

private:
    QString currentFolder() const;
    void list(const QString &filterText, bool filtered);

    UserDefaults &m_defaults;
    QComboBox *m_notebookSelection;
    QLineEdit *m_searchForField;
    QListWidget *m_noteItems;
    QPlainTextEdit *m_contentView;
    QStringList m_items;
    QTimer m_searchTimer;
    QFutureWatcher<QStringList> m_listing;
    QFutureWatcher<QString> m_reading;
    // Workers that lost their race stop early.
    std::atomic<quint64> m_listGeneration = 0;
    std::atomic<quint64> m_readGeneration = 0;
};
