#include "MenubarController.h"

#include "CapturePanel.h"
#include "StatusBarItem.h"
#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "core/UserDefaults.h"
#include "menubar/GlobalKeyStatus.h"
#include "menubar/GlobalShortcut.h"
#include "menubar/PortalGlobalShortcuts.h"
#include "menubar/X11HotKey.h"

#include <QDBusConnection>
#include <QSystemTrayIcon>

MenubarController::MenubarController(UserDefaults &defaults, QObject *parent)
    : QObject(parent)
    , m_defaults(defaults)
    , m_item(new StatusBarItem(this))
    , m_panel(new CapturePanel(defaults))
    , m_hotKey(new X11HotKey(this))
{
    connect(m_item, &StatusBarItem::mouseDown, this, &MenubarController::mouseDown);
    connect(m_item, &StatusBarItem::showAppWindow, this, &MenubarController::showAppWindow);
    connect(m_item, &StatusBarItem::showAppPrefs, this, &MenubarController::showAppPrefs);
    connect(m_item, &StatusBarItem::terminateApp, this, &MenubarController::terminateApp);
    connect(m_panel, &CapturePanel::openChanged, m_item, &StatusBarItem::setClicked);
    connect(m_hotKey, &X11HotKey::released, this, &MenubarController::mouseDown);

    NotificationCenter &center = NotificationCenter::defaultCenter();
    center.addObserver(this, Notifications::GlobalShortcutChanged,
                       [this](const Notification &) { setupGloablShortcut(); });
    // A capture ended with OK or Cancel: the panel has done its job.
    center.addObserver(this, Notifications::StatusBarAddNoteEndClear,
                       [this](const Notification &) { m_panel->closePanel(); });
    if (!X11HotKey::isAvailable()) {
        // Wayland: the desktop binds the key, if it offers the portal; its answer comes later.
        m_portal = new PortalGlobalShortcuts(QDBusConnection::sessionBus(), this);
        connect(m_portal, &PortalGlobalShortcuts::released, this, &MenubarController::mouseDown);
        connect(m_portal, &PortalGlobalShortcuts::bindFinished, &GlobalKeyStatus::instance(),
                &GlobalKeyStatus::reportPortal);
        connect(m_portal, &PortalGlobalShortcuts::probed, this, [this](bool offered) {
            GlobalKeyStatus::instance().reportPortalOffered(offered);
            setupGloablShortcut();
        });
        m_portal->probe();
        return;
    }
    setupGloablShortcut();
}

MenubarController::~MenubarController()
{
    delete m_panel;
}

void MenubarController::showItem()
{
    m_item->trayIcon()->show();
}

void MenubarController::mouseDown()
{
    m_panel->toggleAttachedWindow(m_item->trayIcon()->geometry());
}

void MenubarController::setupGloablShortcut()
{
    const GlobalShortcut shortcut = GlobalShortcut::load(m_defaults);
    if (!shortcut.isSet())
        return;
    if (m_portal) {
        if (m_portal->isOffered())
            m_portal->bind(shortcut);
        return;
    }
    const X11HotKey::Result result =
        m_hotKey->registerKey(m_defaults.value(Settings::PrefSCKeycode),
                              quint16(m_defaults.value(Settings::PrefSCCarbonFlags)));
    GlobalKeyStatus::instance().report(result, shortcut.sequence());
}
