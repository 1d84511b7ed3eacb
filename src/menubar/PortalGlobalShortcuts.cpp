#include "PortalGlobalShortcuts.h"

#include "GlobalShortcut.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QRegularExpression>

// One entry of the portal's shortcut lists, a(sa{sv}): an id and its properties.
struct PortalShortcutEntry
{
    QString id;
    QVariantMap properties;
};
Q_DECLARE_METATYPE(PortalShortcutEntry)

QDBusArgument &operator<<(QDBusArgument &argument, const PortalShortcutEntry &entry)
{
    argument.beginStructure();
    argument << entry.id << entry.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, PortalShortcutEntry &entry)
{
    argument.beginStructure();
    argument >> entry.id >> entry.properties;
    argument.endStructure();
    return argument;
}

namespace {
const QString Service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString DesktopPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString Interface = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
const QString RequestInterface = QStringLiteral("org.freedesktop.portal.Request");

// Key names of the XDG shortcut form (the XKB keysym names) for the keys whose Qt name
// differs.
QString keysymName(const QString &qtName)
{
    static const QHash<QString, QString> names = {
        {QStringLiteral("Return"), QStringLiteral("Return")},
        {QStringLiteral("Enter"), QStringLiteral("KP_Enter")},
        {QStringLiteral("Tab"), QStringLiteral("Tab")},
        {QStringLiteral("Backspace"), QStringLiteral("BackSpace")},
        {QStringLiteral("Esc"), QStringLiteral("Escape")},
        {QStringLiteral("Space"), QStringLiteral("space")},
        {QStringLiteral("Home"), QStringLiteral("Home")},
        {QStringLiteral("End"), QStringLiteral("End")},
        {QStringLiteral("Left"), QStringLiteral("Left")},
        {QStringLiteral("Right"), QStringLiteral("Right")},
        {QStringLiteral("Up"), QStringLiteral("Up")},
        {QStringLiteral("Down"), QStringLiteral("Down")},
        {QStringLiteral("PgUp"), QStringLiteral("Prior")},
        {QStringLiteral("PgDown"), QStringLiteral("Next")},
        {QStringLiteral("Ins"), QStringLiteral("Insert")},
        {QStringLiteral("Del"), QStringLiteral("Delete")},
        {QStringLiteral("Print"), QStringLiteral("Print")},
        {QStringLiteral("Pause"), QStringLiteral("Pause")},
        {QStringLiteral(","), QStringLiteral("comma")},
        {QStringLiteral("."), QStringLiteral("period")},
        {QStringLiteral("-"), QStringLiteral("minus")},
        {QStringLiteral("="), QStringLiteral("equal")},
        {QStringLiteral("/"), QStringLiteral("slash")},
        {QStringLiteral("\\"), QStringLiteral("backslash")},
        {QStringLiteral(";"), QStringLiteral("semicolon")},
        {QStringLiteral("'"), QStringLiteral("apostrophe")},
        {QStringLiteral("`"), QStringLiteral("grave")},
        {QStringLiteral("["), QStringLiteral("bracketleft")},
        {QStringLiteral("]"), QStringLiteral("bracketright")},
    };
    static const QRegularExpression functionKey(QStringLiteral("^F([1-9]|[1-2][0-9]|3[0-5])$"));
    if (qtName.size() == 1 && qtName.at(0).isLetterOrNumber() && qtName.at(0).unicode() < 0x80)
        return qtName.toLower();
    if (functionKey.match(qtName).hasMatch())
        return qtName;
    return names.value(qtName);
}

QString sessionHandleFrom(const QVariant &value)
{
    // The interface documents a string; some portals send an object path.
    if (value.metaType() == QMetaType::fromType<QDBusObjectPath>())
        return value.value<QDBusObjectPath>().path();
    return value.toString();
}
} // namespace

const QString PortalGlobalShortcuts::ShortcutId = QStringLiteral("capture-panel");

PortalGlobalShortcuts::PortalGlobalShortcuts(const QDBusConnection &bus, QObject *parent)
    : QObject(parent)
    , m_bus(bus)
{
    qDBusRegisterMetaType<PortalShortcutEntry>();
    qDBusRegisterMetaType<QList<PortalShortcutEntry>>();
    if (m_bus.isConnected())
        m_bus.connect(Service, DesktopPath, Interface, QStringLiteral("Deactivated"), this,
                      SLOT(onDeactivated(QDBusMessage)));
}

QString PortalGlobalShortcuts::preferredTrigger(const GlobalShortcut &shortcut)
{
    if (!shortcut.isSet())
        return QString();
    const QString key = keysymName(shortcut.charactersIgnoringModifiers);
    if (key.isEmpty())
        return QString();
    QStringList parts;
    if (shortcut.modifiers & Qt::ControlModifier)
        parts << QStringLiteral("CTRL");
    if (shortcut.modifiers & Qt::AltModifier)
        parts << QStringLiteral("ALT");
    if (shortcut.modifiers & Qt::ShiftModifier)
        parts << QStringLiteral("SHIFT");
    if (shortcut.modifiers & Qt::MetaModifier)
        parts << QStringLiteral("LOGO");
    parts << key;
    return parts.join(QLatin1Char('+'));
}

void PortalGlobalShortcuts::probe()
{
    if (!m_bus.isConnected()) {
        m_probed = true;
        m_offered = false;
        Q_EMIT probed(false);
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(
        Service, DesktopPath, QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("Get"));
    call << Interface << QStringLiteral("version");
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call, 5000), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *w) {
        w->deleteLater();
        const QDBusMessage reply = w->reply();
        m_probed = true;
        m_offered = reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty();
        Q_EMIT probed(m_offered);
    });
}

QString PortalGlobalShortcuts::newToken()
{
    return QStringLiteral("vellox%1_%2").arg(QCoreApplication::applicationPid()).arg(++m_tokens);
}

QString PortalGlobalShortcuts::requestPath(const QString &token) const
{
    // The portal names a request after the caller's unique bus name: ":1.42" becomes "1_42".
    QString sender = m_bus.baseService();
    sender.remove(0, 1).replace(QLatin1Char('.'), QLatin1Char('_'));
    return QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
}

void PortalGlobalShortcuts::watch(const QString &path, const Request &request)
{
    m_requests.insert(path, request);
    m_bus.connect(Service, path, RequestInterface, QStringLiteral("Response"), this,
                  SLOT(onResponse(uint, QVariantMap, QDBusMessage)));
}

void PortalGlobalShortcuts::unwatch(const QString &path)
{
    m_requests.remove(path);
    m_bus.disconnect(Service, path, RequestInterface, QStringLiteral("Response"), this,
                     SLOT(onResponse(uint, QVariantMap, QDBusMessage)));
}

void PortalGlobalShortcuts::send(const QDBusMessage &call, const QString &token,
                                 const Request &request)
{
    // The answer comes as a signal on the request's path, possibly before the call returns:
    // listen there first.
    const QString expected = requestPath(token);
    watch(expected, request);
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, expected, request](QDBusPendingCallWatcher *w) {
                w->deleteLater();
                const QDBusPendingReply<QDBusObjectPath> reply = *w;
                if (reply.isError()) {
                    unwatch(expected);
                    finish(Result::Failed, request, reply.error().message());
                    return;
                }
                // Older portals choose the path themselves.
                const QString actual = reply.value().path();
                if (actual != expected && m_requests.contains(expected)) {
                    unwatch(expected);
                    watch(actual, request);
                }
            });
}

void PortalGlobalShortcuts::bind(const GlobalShortcut &shortcut)
{
    Request request;
    request.step = Step::CreateSession;
    request.combination = shortcut.sequence();
    request.trigger = preferredTrigger(shortcut);
    if (!m_bus.isConnected()) {
        //% "There is no session bus to reach the desktop's shortcut service."
        finish(Result::Failed, request, qtTrId("GLOBAL_KEY_PORTAL_NO_BUS"));
        return;
    }
    const QString token = newToken();
    QDBusMessage call = QDBusMessage::createMethodCall(Service, DesktopPath, Interface,
                                                       QStringLiteral("CreateSession"));
    call << QVariantMap{{QStringLiteral("handle_token"), token},
                        {QStringLiteral("session_handle_token"), newToken()}};
    send(call, token, request);
}

void PortalGlobalShortcuts::bindInSession(const QString &session, const Request &created)
{
    Request request = created;
    request.step = Step::Bind;
    QVariantMap properties{
        //% "Open and close Vellox's capture panel"
        {QStringLiteral("description"), qtTrId("GLOBAL_KEY_PORTAL_DESCRIPTION")}};
    if (!request.trigger.isEmpty())
        properties.insert(QStringLiteral("preferred_trigger"), request.trigger);
    const QList<PortalShortcutEntry> shortcuts{{ShortcutId, properties}};

    const QString token = newToken();
    QDBusMessage call = QDBusMessage::createMethodCall(Service, DesktopPath, Interface,
                                                       QStringLiteral("BindShortcuts"));
    call << QVariant::fromValue(QDBusObjectPath(session)) << QVariant::fromValue(shortcuts)
         << QString() << QVariantMap{{QStringLiteral("handle_token"), token}};
    send(call, token, request);
}

void PortalGlobalShortcuts::onResponse(uint response, const QVariantMap &results,
                                       const QDBusMessage &message)
{
    const QString path = message.path();
    if (!m_requests.contains(path))
        return;
    const Request request = m_requests.value(path);
    unwatch(path);
    if (response == 1) {
        //% "The desktop's shortcut dialog was cancelled."
        finish(Result::Cancelled, request, qtTrId("GLOBAL_KEY_PORTAL_CANCELLED"));
        return;
    }
    if (response != 0) {
        //% "The desktop's shortcut service ended the request."
        finish(Result::Failed, request, qtTrId("GLOBAL_KEY_PORTAL_ENDED"));
        return;
    }
    if (request.step == Step::CreateSession) {
        const QString session = sessionHandleFrom(results.value(QStringLiteral("session_handle")));
        if (session.isEmpty()) {
            //% "The desktop's shortcut service opened no session."
            finish(Result::Failed, request, qtTrId("GLOBAL_KEY_PORTAL_NO_SESSION"));
            return;
        }
        m_sessions.insert(session);
        bindInSession(session, request);
        return;
    }
    QList<PortalShortcutEntry> bound;
    const QVariant list = results.value(QStringLiteral("shortcuts"));
    if (list.canConvert<QDBusArgument>())
        list.value<QDBusArgument>() >> bound;
    for (const PortalShortcutEntry &entry : std::as_const(bound)) {
        if (entry.id == ShortcutId) {
            finish(Result::Bound, request,
                   entry.properties.value(QStringLiteral("trigger_description")).toString());
            return;
        }
    }
    //% "The desktop did not bind a key to the capture panel."
    finish(Result::Cancelled, request, qtTrId("GLOBAL_KEY_PORTAL_NOT_BOUND"));
}

void PortalGlobalShortcuts::onDeactivated(const QDBusMessage &message)
{
    // (o session_handle, s shortcut_id, t timestamp, a{sv} options)
    const QVariantList arguments = message.arguments();
    if (arguments.size() < 3)
        return;
    const QString session = arguments.at(0).value<QDBusObjectPath>().path();
    const qulonglong timestamp = arguments.at(2).toULongLong();
    if (arguments.at(1).toString() != ShortcutId || !m_sessions.contains(session))
        return;
    if (timestamp == m_lastRelease && session != m_lastReleaseSession &&
        !m_lastReleaseSession.isEmpty())
        return;
    m_lastRelease = timestamp;
    m_lastReleaseSession = session;
    Q_EMIT released();
}

void PortalGlobalShortcuts::finish(Result result, const Request &request, const QString &detail)
{
    Q_EMIT bindFinished(result, request.combination, detail);
}
