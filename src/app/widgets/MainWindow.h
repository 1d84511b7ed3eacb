#pragma once

#include <QMainWindow>
#include <QPointer>

class MessageBar;
class QComboBox;
class QLabel;
class QLineEdit;
class QListView;
class QMenu;
class QPlainTextEdit;
class QSplitter;
class QStackedWidget;
class QToolButton;
class MenuBuilder;
class NotebookSideBar;

// The main window's widgets and menus. It shows and routes; AppController decides.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    explicit MainWindow(QWidget *parent = nullptr);

    NotebookSideBar *sideBar() const { return m_sideBar; }
    QComboBox *notebookPopUp() const { return m_notebookPopUp; }
    QLineEdit *titleField() const { return m_titleField; }
    QListView *entryList() const { return m_entryList; }
    QPlainTextEdit *editor() const { return m_editor; }
    QWidget *previewArea() const { return m_previewArea; }
    QStackedWidget *contentStack() const { return m_contentStack; }
    // The one place for "this did not work, your text is safe" messages.
    MessageBar *messageBar() const { return m_messageBar; }
    QWidget *attachmentArea() const { return m_attachmentArea; }
    QLabel *wordCounter() const { return m_wordCounter; }
    QToolButton *editModeButton() const { return m_editModeButton; }
    QToolButton *previewModeButton() const { return m_previewModeButton; }
    QToolButton *attachmentButton() const { return m_attachmentButton; }
    QToolButton *addEntryButton() const { return m_addEntryButton; }
    QToolButton *removeEntryButton() const { return m_removeEntryButton; }
    QToolButton *styleButton() const { return m_styleButton; }
    QToolButton *settingsButton() const { return m_settingsButton; }
    // The menus and their items, made from the action table; found by object name only.
    MenuBuilder *actions() const { return m_actions; }
    QAction *action(const QString &objectName) const;
    QMenu *menu(const QString &objectName) const;
    QMenu *moveToMenu() const { return menu(QStringLiteral("menuMoveTo")); }
    QMenu *duplicateToMenu() const { return menu(QStringLiteral("menuDuplicateTo")); }
    QMenu *markupLanguageMenu() const { return menu(QStringLiteral("menuMarkupLanguage")); }

    // Swaps in the real editor or preview when they are created.
    void setEditor(QPlainTextEdit *editor);
    void setPreviewWidget(QWidget *preview);
    void showEditor();
    void showPreview();
    void setAttachmentAreaVisible(bool visible);
    // The dark variant: white icons and text on dark backgrounds.
    void applyDarkAppearance(bool dark);
    static QIcon themedIcon(const QString &baseName, bool white);

    // The markup language item tagged 900 + language (in the menu tagged 900, inside the
    // Format menu's item tagged 800).
    QAction *markupLanguageAction(int tag) const;

Q_SIGNALS:
    void activationChanged(bool active);
    void closing();

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void buildMenus();
    QWidget *buildTopBar();
    QToolButton *makeToolButton(const QString &name, const QString &tip, const QString &icon);

    NotebookSideBar *m_sideBar;
    QComboBox *m_notebookPopUp;
    QLineEdit *m_titleField;
    QListView *m_entryList;
    QPlainTextEdit *m_editor;
    QWidget *m_previewArea;
    QStackedWidget *m_contentStack;
    MessageBar *m_messageBar;
    QWidget *m_attachmentArea;
    QLabel *m_wordCounter;
    QToolButton *m_editModeButton = nullptr;
    QToolButton *m_previewModeButton = nullptr;
    QToolButton *m_attachmentButton = nullptr;
    QToolButton *m_addEntryButton = nullptr;
    QToolButton *m_removeEntryButton = nullptr;
    QToolButton *m_styleButton = nullptr;
    QToolButton *m_settingsButton = nullptr;
    QSplitter *m_splitter = nullptr;
    MenuBuilder *m_actions;
    bool m_dark = false;
};
