#pragma once

#include <QObject>

class CapturePanel;
class PortalGlobalShortcuts;
class StatusBarItem;
class UserDefaults;
class X11HotKey;

// The tray icon, its capture panel and the global key together: a click on the icon, the
// key's release and the end of a capture all toggle the panel, and the icon stays
// highlighted while the panel is open.
class MenubarController : public QObject
{
    Q_OBJECT
public:
    explicit MenubarController(UserDefaults &defaults, QObject *parent = nullptr);
    ~MenubarController() override;

    CapturePanel *panel() const { return m_panel; }
    StatusBarItem *item() const { return m_item; }
    X11HotKey *hotKey() const { return m_hotKey; }
    // The desktop portal that binds the key where X11 cannot grab it; null on X11.
    PortalGlobalShortcuts *portal() const { return m_portal; }

    // Opens or closes the panel under the icon.
    void mouseDown();
    // Registers the stored combination, if any; a combination once registered stays.
    void setupGloablShortcut();
    // Shows the tray icon where the desktop has a tray.
    void showItem();

Q_SIGNALS:
    void showAppWindow();
    void showAppPrefs();
    void terminateApp();

private:
    UserDefaults &m_defaults;
    StatusBarItem *m_item;
    CapturePanel *m_panel;
    X11HotKey *m_hotKey;
    PortalGlobalShortcuts *m_portal = nullptr;
};
