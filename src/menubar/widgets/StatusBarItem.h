#pragma once

#include <QObject>
#include <QPixmap>

class QAction;
class QMenu;
class QSystemTrayIcon;

// The application's icon in the desktop's tray (StatusNotifierItem or XEmbed, whichever the
// desktop has). A left click asks for the capture panel; the right-click menu brings the
// main window, the preferences or quits. While the panel is open the icon is drawn
// highlighted.
class StatusBarItem : public QObject
{
    Q_OBJECT
public:
    explicit StatusBarItem(QObject *parent = nullptr);
    ~StatusBarItem() override;

    QSystemTrayIcon *trayIcon() const { return m_tray; }
    QMenu *menu() const { return m_menu; }
    QAction *mainWindowAction() const { return m_mainWindow; }
    QAction *preferencesAction() const { return m_preferences; }
    QAction *quitAction() const { return m_quit; }

    bool clicked() const { return m_clicked; }
    void setClicked(bool clicked);
    // Follows the desktop's light or dark appearance.
    void setDarkAppearance(bool dark);
    // The tray's icon picture: the alternative (light) one on a dark desktop or while
    // clicked, on the selection colour while clicked.
    static QPixmap drawItem(bool clicked, bool dark, const QColor &selection, int size);
    static bool desktopIsDark();

Q_SIGNALS:
    void mouseDown();
    void showAppWindow();
    void showAppPrefs();
    void terminateApp();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void redraw();

    QSystemTrayIcon *m_tray;
    QMenu *m_menu;
    QAction *m_mainWindow;
    QAction *m_preferences;
    QAction *m_quit;
    bool m_clicked = false;
    bool m_dark = false;
};
