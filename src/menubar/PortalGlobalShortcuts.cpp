#include "PortalGlobalShortcuts.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QGuiApplication>

namespace PortalGlobalShortcuts {

bool isOffered()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return false;
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    call << QStringLiteral("org.freedesktop.portal.GlobalShortcuts") << QStringLiteral("version");
    const QDBusMessage reply = bus.call(call, QDBus::Block, 2000);
    return reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty();
}

bool isWaylandSession()
{
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

} // namespace PortalGlobalShortcuts
