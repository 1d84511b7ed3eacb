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

class NotebookRegistry;
class QAction;
class UserDefaults;

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
    // when the user cancelled the first run (the app then ends with status 0).
    bool awakeFromNib();
    void startTheGame();

    MainWindow *window() const { return m_window; }
    NotebookRegistry &registry() const { return *m_registry; }

    // Accessors of the window state.
    QString myPersonalSavePath() const { return m_myPersonalSavePath; }
    QByteArray securityScopeBookmarkData() const { return m_securityScopeBookmarkData; }
    QString loadedString() const { return m_loadedString; }
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

    // Entry listing (filled in by the entry controller).
    void loadFilesForSelectedNoticeBlock();

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

    // Lets the notebook-changing paths finish pending work first (a save in progress).
    void setBeforeNotebookChange(std::function<void()> hook) { m_beforeNotebookChange = hook; }
    void setListingHooks(std::function<void()> relist) { m_relist = relist; }

Q_SIGNALS:
    void currentNotebookChanged(const QString &path);
    void editorShouldReset();

private:
    void applyCurrentNotebookTitle(int index);
    void observeNotifications();
    bool runFirstRunPanel();
    void setupDarkDocument();
    void wireWindow();

    UserDefaults &m_defaults;
    NotebookRegistry *m_registry;
    QPointer<MainWindow> m_window;
    QPointer<FirstRunPanel> m_firstRunPanel;
    QTimer m_menuRebuildTimer;
    std::function<void()> m_beforeNotebookChange;
    std::function<void()> m_relist;

    // Window state.
    QVariantList m_theContents;
    QString m_myPersonalSavePath;
    QByteArray m_securityScopeBookmarkData;
    QUrl m_securityScopeUrl;
    QString m_firstRun_DiaryNameString;
    QString m_loadedString;
    QList<QObject *> m_editorWindows;
    bool m_fullscreenActive = false;
    bool m_firstRunCancelled = false;
};
