#pragma once

#include <QAbstractNativeEventFilter>
#include <QList>
#include <QObject>
#include <QPair>

// System-wide keys on an X11 session: each combination is grabbed on the root windows, in
// its four variants with and without Caps Lock and Num Lock (the X server matches the lock
// modifiers too), and acts when its key is let go. The release is matched by key code alone
// because the modifiers are often released first. Grabs are never given up while the
// application runs: after a change both the old and the new combination act.
class X11HotKey : public QObject, public QAbstractNativeEventFilter
{
    Q_OBJECT
public:
    enum class Result {
        Registered,
        AlreadyRegistered,
        NoX11,     // not an X11 session (Wayland, offscreen)
        NoKeyCode, // the key has no key code on this keyboard
        Taken,     // another program holds the combination (BadAccess)
    };
    Q_ENUM(Result)

    explicit X11HotKey(QObject *parent = nullptr);
    ~X11HotKey() override;

    // True when the application talks to an X server.
    static bool isAvailable();
    // The X11 key code the current keyboard gives a Qt key, 0 when none (or no X11).
    static int keyCodeForQtKey(int qtKey);

    Result registerKey(int keyCode, quint16 x11Modifiers);
    int registeredCount() const { return int(m_keys.size()); }

    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;

Q_SIGNALS:
    // A registered combination's key was let go.
    void released();

private:
    QList<QPair<int, quint16>> m_keys;
    bool m_filtering = false;
    int m_pressedKeyCode = 0;
};
