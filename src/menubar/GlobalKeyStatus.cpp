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
    if (X11HotKey::isAvailable() || instance().portalOffered())
        return QString();
    //% "The global key needs an X11 session or a desktop that offers the global-shortcuts
    // portal (KDE Plasma 6, GNOME 48 and later). The tray icon and View → Capture Panel open the
    // panel meanwhile."
    return qtTrId("GLOBAL_KEY_NEEDS_X11_OR_PORTAL");
}

void GlobalKeyStatus::reportPortalOffered(bool offered)
{
    m_portalOffered = offered;
    Q_EMIT portalReported(m_portalResult, m_portalCombination, m_portalDetail);
}

void GlobalKeyStatus::reportPortal(PortalGlobalShortcuts::Result result,
                                   const QKeySequence &combination, const QString &detail)
{
    m_hasPortalReport = true;
    m_portalResult = result;
    m_portalCombination = combination;
    m_portalDetail = detail;
    Q_EMIT portalReported(result, combination, detail);
}

QString GlobalKeyStatus::lastPortalText() const
{
    if (!m_hasPortalReport)
        return QString();
    return describePortal(m_portalResult, m_portalCombination, m_portalDetail);
}

QString GlobalKeyStatus::describePortal(PortalGlobalShortcuts::Result result,
                                        const QKeySequence &combination, const QString &detail)
{
    const QString keys = combination.toString(QKeySequence::NativeText);
    switch (result) {
    case PortalGlobalShortcuts::Result::Bound:
        if (detail.isEmpty()) {
            //% "The desktop keeps the capture panel's shortcut but names no keys for it: set
            // them in the desktop's keyboard settings."
            return qtTrId("GLOBAL_KEY_PORTAL_BOUND_NO_KEYS");
        }
        //% "The desktop bound %1 to open and close the capture panel from any program."
        return qtTrId("GLOBAL_KEY_PORTAL_BOUND").arg(detail);
    case PortalGlobalShortcuts::Result::Cancelled:
    case PortalGlobalShortcuts::Result::Failed:
        //% "%1 does not open the capture panel: %2 Choose the combination again to ask the
        // desktop once more."
        return qtTrId("GLOBAL_KEY_PORTAL_NOT_ACTIVE").arg(keys, detail);
    }
    return QString();
}
