#pragma once

#include <QDBusConnection>
#include <QHash>
#include <QKeySequence>
#include <QObject>
#include <QSet>

struct GlobalShortcut;
class QDBusMessage;

// Wayland desktops give programs system-wide keys only through the desktop portal's
// GlobalShortcuts interface. The capture panel's shortcut is bound in a portal session with
// the stored combination as the preferred trigger; the desktop may ask the user first and
// says which keys it bound. Like the X11 grabs, no session is closed while the application
// runs: a changed combination is bound in a session of its own and the older ones keep
// acting as long as the desktop keeps them. The shortcut acts when it is let go
// (Deactivated), as the X11 key does on release.
class PortalGlobalShortcuts : public QObject
{
    Q_OBJECT
public:
    enum class Result {
        Bound,     // the desktop bound the shortcut
        Cancelled, // the user declined, or the desktop bound no key
        Failed,    // no portal answered, or it reported an error
    };
    Q_ENUM(Result)

    // The one shortcut's id in every session.
    static const QString ShortcutId;

    explicit PortalGlobalShortcuts(const QDBusConnection &bus, QObject *parent = nullptr);

    // The combination in the XDG shortcut form the portal reads ("CTRL+ALT+j", "SHIFT+F8");
    // "" for a key that form has no name for.
    static QString preferredTrigger(const GlobalShortcut &shortcut);

    // Asks, without waiting, whether the bus has a portal with the interface; probed follows.
    void probe();
    bool isProbed() const { return m_probed; }
    bool isOffered() const { return m_offered; }

    // Creates a session and binds the shortcut in it; bindFinished follows.
    void bind(const GlobalShortcut &shortcut);
    int sessionCount() const { return int(m_sessions.size()); }

Q_SIGNALS:
    void probed(bool offered);
    // detail: for Bound the keys as the desktop names them ("" when it names none); for
    // Cancelled and Failed what went wrong, for the user.
    void bindFinished(PortalGlobalShortcuts::Result result, const QKeySequence &combination,
                      const QString &detail);
    // The shortcut was let go.
    void released();

private Q_SLOTS:
    void onResponse(uint response, const QVariantMap &results, const QDBusMessage &message);
    void onDeactivated(const QDBusMessage &message);

private:
    enum class Step { CreateSession, Bind };
    struct Request
    {
        Step step = Step::CreateSession;
        QKeySequence combination;
        QString trigger;
    };

    QString newToken();
    QString requestPath(const QString &token) const;
    void send(const QDBusMessage &call, const QString &token, const Request &request);
    void watch(const QString &path, const Request &request);
    void unwatch(const QString &path);
    void bindInSession(const QString &session, const Request &request);
    void finish(Result result, const Request &request, const QString &detail);

    QDBusConnection m_bus;
    bool m_probed = false;
    bool m_offered = false;
    int m_tokens = 0;
    QHash<QString, Request> m_requests; // by request object path
    QSet<QString> m_sessions;
    // One key release reaches every session the desktop binds it in.
    qulonglong m_lastRelease = 0;
    QString m_lastReleaseSession;
};
