#include "FileBrowser.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace FileBrowser {

void showItem(const QString &path)
{
    const QString service = QStringLiteral("org.freedesktop.FileManager1");
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected() && bus.interface() &&
        (bus.interface()->isServiceRegistered(service).value() ||
         bus.interface()->activatableServiceNames().value().contains(service))) {
        QDBusMessage call =
            QDBusMessage::createMethodCall(service, QStringLiteral("/org/freedesktop/FileManager1"),
                                           service, QStringLiteral("ShowItems"));
        call << QStringList{QUrl::fromLocalFile(path).toString()} << QString();
        if (bus.send(call))
            return;
    }
    openFolder(QFileInfo(path).absolutePath());
}

void openFolder(const QString &folder)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}

} // namespace FileBrowser
