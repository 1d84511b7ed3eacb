#pragma once

#include <QObject>
#include <QStringList>

class QLocalServer;

// Keeps Vellox to one running instance per user. The first start owns a name of its own on
// the session bus ("app.vellox.Vellox", falling back to a local socket in the runtime folder
// where there is no bus); a later start hands its arguments to it and ends, so a captured
// link opens no second window on the same files.
class SingleInstance : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "app.vellox.Vellox.Instance")
public:
    enum class Transport { Automatic, LocalSocketOnly };

    static const QString ServiceName;
    static const QString ObjectPath;
    static const QString InterfaceName;

    explicit SingleInstance(Transport transport = Transport::Automatic, QObject *parent = nullptr);
    ~SingleInstance() override;

    // True when a running instance took the arguments: this process should end. Otherwise
    // this process is now the one that receives later starts' arguments.
    bool handOverOrListen(const QStringList &arguments);
    bool isListening() const { return m_listening; }
    // The socket used where there is no session bus.
    static QString socketPath();

public Q_SLOTS:
    // Called over the bus by a later start.
    Q_SCRIPTABLE void Activate(const QStringList &arguments);

Q_SIGNALS:
    // A later start handed over its arguments (without the program name).
    void argumentsReceived(const QStringList &arguments);

private:
    bool handOverOnBus(const QStringList &arguments);
    bool listenOnBus();
    bool handOverOnSocket(const QStringList &arguments);
    bool listenOnSocket();
    void readConnection();

    Transport m_transport;
    QLocalServer *m_server = nullptr;
    bool m_listening = false;
    bool m_onBus = false;
};
