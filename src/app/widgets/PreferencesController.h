#pragma once

#include <QDialog>
#include <QImage>
#include <QObject>
#include <QPointer>

class QComboBox;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;
class QTabWidget;
class NotebookOrderModel;
class NotebookRegistry;
class UserDefaults;

// The preferences window. Its first pane manages the notebooks: create, delete, rename,
// change location and icon, reorder. Later panes (editor, typography, ...) are added to
// the same tab widget.
class PreferencesController : public QObject
{
    Q_OBJECT
public:
    explicit PreferencesController(UserDefaults &defaults, QObject *parent = nullptr);
    ~PreferencesController() override;

    QDialog *window() const { return m_window; }
    QTabWidget *tabs() const { return m_tabs; }
    void showWindow();

    QStringList getDiaryTitles() const;
    void loadDiaries();
    void selectAnotherDiaryOption(int index);
    void setDiarySelectedWithIndex(int index);
    int selectedIndex() const;

    void diaryCreateNew();
    void diaryDdeleteSelected();
    void diaryChangeLocation();
    void diaryChangeIcon();
    void loadIcon(const QString &imagePath);
    void diarySaveChangeForSelected();
    void showIconChooser();

    // What the folder and file choosers hand back.
    void applyChosenLocation(const QString &folder);
    void applyChosenIconFile(const QString &imagePath);

    // A drop in the order table: the record at from moves to row to.
    void acceptDrop(int from, int to);

    // Widgets, for the window's own wiring and for tests.
    QComboBox *selector() const { return m_selector; }
    QLineEdit *nameField() const { return m_nameField; }
    QLineEdit *locationField() const { return m_locationField; }
    QLabel *iconWell() const { return m_iconWell; }
    QListView *orderTable() const { return m_orderTable; }
    NotebookOrderModel *orderModel() const { return m_orderModel; }
    QImage iconWellImage() const { return m_iconImage; }

private:
    void buildWindow();
    QWidget *buildNotebookPane();
    void setIconWellImage(const QImage &image);
    void refreshOrderTable();

    UserDefaults &m_defaults;
    NotebookRegistry *m_registry;
    QPointer<QDialog> m_window;
    QTabWidget *m_tabs = nullptr;
    QComboBox *m_selector = nullptr;
    QLineEdit *m_nameField = nullptr;
    QLineEdit *m_locationField = nullptr;
    QLabel *m_iconWell = nullptr;
    QListView *m_orderTable = nullptr;
    NotebookOrderModel *m_orderModel = nullptr;
    QImage m_iconImage;
};
