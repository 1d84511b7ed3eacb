#include "GlobalKeyStatus.h"

#include "PortalGlobalShortcuts.h"

GlobalKeyStatus &GlobalKeyStatus::instance()
{
    static GlobalKeyStatus status;
    return status;
}

void GlobalKeyStatus::report(X11HotKey::Result result, const QKeySequence &combination)
{
    m_hasReport = true;
    m_result = result;
    m_combination = combination;
    Q_EMIT reported(result, combination);
}

QString GlobalKeyStatus::describe(X11HotKey::Result result, const QKeySequence &combination)
{
    const QString keys = combination.toString(QKeySequence::NativeText);
    switch (result) {
    case X11HotKey::Result::Registered:
    case X11HotKey::Result::AlreadyRegistered:
        //% "%1 opens and closes the capture panel from any program."
        return qtTrId("GLOBAL_KEY_ACTIVE").arg(keys);
    case X11HotKey::Result::Taken:
        //% "Another program already uses %1, so it cannot open the capture panel. Choose another
        // combination."
        return qtTrId("GLOBAL_KEY_TAKEN").arg(keys);
    case X11HotKey::Result::NoKeyCode:
        //% "This keyboard has no key for %1."
        return qtTrId("GLOBAL_KEY_NO_KEYCODE").arg(keys);
    case X11HotKey::Result::NoX11:
        return sessionProblem();
    }
    return QString();
}

QString GlobalKeyStatus::sessionProblem()
{
    if (X11HotKey::isAvailable())
        return QString();
    if (PortalGlobalShortcuts::isWaylandSession() && PortalGlobalShortcuts::isOffered()) {
        //% "The global key needs an X11 session: Vellox does not use this desktop's
        // global-shortcuts portal yet. The tray icon and View → Capture Panel open the panel
        // meanwhile."
        return qtTrId("GLOBAL_KEY_NEEDS_X11_PORTAL");
    }
    //% "The global key needs an X11 session: log in to an X11 (Xorg) session to use it. The tray
    // icon and View → Capture Panel open the panel meanwhile."
    return qtTrId("GLOBAL_KEY_NEEDS_X11");
}
