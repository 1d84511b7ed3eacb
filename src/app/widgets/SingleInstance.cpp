#include "SingleInstance.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDataStream>
#include <QDir>
#include <QLocalServer>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QtDebug>

const QString SingleInstance::ServiceName = QStringLiteral("app.vellox.Vellox");
const QString SingleInstance::ObjectPath = QStringLiteral("/app/vellox/Vellox");
const QString SingleInstance::InterfaceName = QStringLiteral("app.vellox.Vellox.Instance");

namespace {
// Long enough for a busy instance (a modal dialog open, a big notebook being listed) to
// take the call; a frozen one is given up on and this start runs on its own.
constexpr int kCallTimeoutMs = 10000;
constexpr char kAcknowledgement = '\x06';
} // namespace

SingleInstance::SingleInstance(Transport transport, QObject *parent)
    : QObject(parent)
    , m_transport(transport)
{}

SingleInstance::~SingleInstance()
{
    if (m_onBus) {
        QDBusConnection bus = QDBusConnection::sessionBus();
        bus.unregisterService(ServiceName);
        bus.unregisterObject(ObjectPath);
    }
}

QString SingleInstance::socketPath()
{
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty())
        folder = QDir::tempPath();
    return folder + QStringLiteral("/vellox-instance");
}

bool SingleInstance::handOverOrListen(const QStringList &arguments)
{
    if (m_transport == Transport::Automatic && QDBusConnection::sessionBus().isConnected()) {
        if (listenOnBus())
            return false;
        if (handOverOnBus(arguments))
            return true;
        qWarning().noquote() << "ERROR: the running Vellox did not answer; starting another one";
        return false;
    }
    if (handOverOnSocket(arguments))
        return true;
    listenOnSocket();
    return false;
}

// Bus -----------------------------------------------------------------------------------------

bool SingleInstance::listenOnBus()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    // The object first: a start that sees the name taken can call it at once.
    if (!bus.registerObject(ObjectPath, this, QDBusConnection::ExportScriptableSlots))
        return false;
    if (!bus.registerService(ServiceName)) {
        bus.unregisterObject(ObjectPath);
        return false;
    }
    m_onBus = true;
    m_listening = true;
    return true;
}

bool SingleInstance::handOverOnBus(const QStringList &arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(ServiceName, ObjectPath, InterfaceName,
                                                       QStringLiteral("Activate"));
    call << arguments;
    const QDBusMessage reply =
        QDBusConnection::sessionBus().call(call, QDBus::Block, kCallTimeoutMs);
    return reply.type() == QDBusMessage::ReplyMessage;
}

void SingleInstance::Activate(const QStringList &arguments)
{
    // Answered at once: what the arguments lead to may open a modal alert, and the later
    // start waits for this reply before it ends.
    QMetaObject::invokeMethod(
        this, [this, arguments] { Q_EMIT argumentsReceived(arguments); }, Qt::QueuedConnection);
}

// Local socket --------------------------------------------------------------------------------

bool SingleInstance::handOverOnSocket(const QStringList &arguments)
{
    QLocalSocket socket;
    socket.connectToServer(socketPath());
    if (!socket.waitForConnected(1000))
        return false;
    QByteArray message;
    QDataStream stream(&message, QIODevice::WriteOnly);
    stream << arguments;
    QDataStream out(&socket);
    out << message;
    if (!socket.waitForBytesWritten(kCallTimeoutMs))
        return false;
    // The reply says the arguments arrived whole, not merely that they were sent.
    while (socket.bytesAvailable() < 1) {
        if (!socket.waitForReadyRead(kCallTimeoutMs))
            return false;
    }
    char answer = 0;
    return socket.getChar(&answer) && answer == kAcknowledgement;
}

bool SingleInstance::listenOnSocket()
{
    m_server = new QLocalServer(this);
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    // Nobody answered above: a socket file left there is from an instance that died.
    QLocalServer::removeServer(socketPath());
    if (!m_server->listen(socketPath())) {
        qWarning().noquote() << "ERROR: cannot listen for later starts at" << socketPath() << ":"
                             << m_server->errorString();
        return false;
    }
    connect(m_server, &QLocalServer::newConnection, this, &SingleInstance::readConnection);
    m_listening = true;
    return true;
}

void SingleInstance::readConnection()
{
    while (QLocalSocket *socket = m_server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        auto read = [this, socket] {
            QDataStream stream(socket);
            stream.startTransaction();
            QByteArray message;
            stream >> message;
            if (!stream.commitTransaction())
                return;
            QStringList arguments;
            QDataStream unpack(message);
            unpack >> arguments;
            socket->putChar(kAcknowledgement);
            socket->flush();
            QMetaObject::invokeMethod(
                this, [this, arguments] { Q_EMIT argumentsReceived(arguments); },
                Qt::QueuedConnection);
        };
        connect(socket, &QLocalSocket::readyRead, this, read);
        if (socket->bytesAvailable() > 0)
            read();
    }
}
