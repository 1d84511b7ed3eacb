#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QImage>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <QUrl>
#include <QVariantList>

#include <functional>

#include "FirstRunPanel.h"
#include "MainWindow.h"

class CSSStykeController;
class EditorCommands;
class EntryController;
class NotebookRegistry;
class OneClickStyleEditorController;
class PreviewController;
class QAction;
class UserDefaults;
class Vellox_EnhancedTextView;

// The main window's controller: the current notebook, the notebook menus and side bar,
// first-run set-up, and what happens when the window comes and goes. Entry listing,
// editing and preview are delegated to their own controllers.
class AppController : public QObject
{
    Q_OBJECT
public:
    explicit AppController(UserDefaults &defaults, QObject *parent = nullptr);
    ~AppController() override;

    // Builds the window and runs the first-run panel when no notebook exists. Returns false
    // when the user cancelled the first run (the app then ends with status 0). The notebook
    // is listed by startTheGame(), once the window shows.
    bool awakeFromNib();
    void startTheGame();

    MainWindow *window() const { return m_window; }
    UserDefaults &defaults() const { return m_defaults; }
    NotebookRegistry &registry() const { return *m_registry; }
    EntryController *entries() const { return m_entries; }
    PreviewController *preview() const { return m_preview; }
    Vellox_EnhancedTextView *editor() const { return m_editor; }
    EditorCommands *editorCommands() const { return m_editorCommands; }
    CSSStykeController *cssStyles();
    OneClickStyleEditorController *tabActionEditor();

    // Accessors of the window state.
    QString myPersonalSavePath() const { return m_myPersonalSavePath; }
    QByteArray securityScopeBookmarkData() const { return m_securityScopeBookmarkData; }
    QString loadedString() const;
    bool fullscreen() const { return m_fullscreenActive; }

    // Access to the current notebook folder; nothing to open on this platform.
    void startSecurityScopeSandBox();
    void stopSecurityScopeSandBox();

    // Notebook menus and side bar.
    void diaryMenuInit();
    void diaryMenuInitFromNotification();
    // index < 0 stands for "no sender": notebook 0.
    void selectDiary(int index = -1);
    void sideBarDidSelectButton(int row);
    void prepareToSelectSideNavigationWithIndex(int index);
    static QImage convertImageToGrayScale(const QImage &image);
    static QImage notebookIcon(const QString &folder, int size);

    // Entry listing, loading and saving live in the entry controller.
    void loadFilesForSelectedNoticeBlock();

    // Preview and styles.
    void reloadPreviewWithNewCSSStyle();
    void showCSSStyleSelectorHudPanel();
    void showEditorView();
    void showPreviewView();
    void showTabActionEditor();

    // Return to and leaving of the window.
    void windowDidBecomeMain();
    void windowDidResignMain();

    // First run.
    void firstRun_setupDiary();
    void firstRun_selectFirstDiarySavePath();
    void firstRun_setFolder(const QString &folder);
    void firstRun_cancelAndQuit();
    void checkIfOKButtonCanbeReleased();
    QString firstRun_DiaryNameString() const { return m_firstRun_DiaryNameString; }
    void setFirstRun_DiaryNameString(const QString &name);
    FirstRunPanel *firstRunPanel() const { return m_firstRunPanel; }
    bool firstRunCancelled() const { return m_firstRunCancelled; }

    // Markup language menu.
    void selectMarkupLanguage(QAction *item);
    void tickCurrentMarkupLanguage();

Q_SIGNALS:
    void currentNotebookChanged(const QString &path);

private:
    void applyCurrentNotebookTitle(int index);
    void observeNotifications();
    bool runFirstRunPanel();
    void setupDarkDocument();
    void buildEditor();
    void buildEntriesAndPreview();
    void buildMenus();
    void wireWindow();
    void wireSubsystems();
    void resetEditorForNotebookChange();
    // The pop-up and side bar back on the notebook still open.
    void showCurrentNotebookSelected();
    void reportDamagedSettings();
    QString selectedEntryPath() const;

    UserDefaults &m_defaults;
    NotebookRegistry *m_registry;
    QPointer<MainWindow> m_window;
    QPointer<FirstRunPanel> m_firstRunPanel;
    QTimer m_menuRebuildTimer;
    Vellox_EnhancedTextView *m_editor = nullptr;
    EditorCommands *m_editorCommands = nullptr;
    EntryController *m_entries = nullptr;
    PreviewController *m_preview = nullptr;
    CSSStykeController *m_cssStyles = nullptr;
    QPointer<OneClickStyleEditorController> m_tabActionEditor;

    // Window state.
    QVariantList m_theContents;
    QString m_myPersonalSavePath;
    QByteArray m_securityScopeBookmarkData;
    QUrl m_securityScopeUrl;
    QString m_firstRun_DiaryNameString;
    QList<QObject *> m_editorWindows;
    bool m_fullscreenActive = false;
    bool m_firstRunCancelled = false;
};
