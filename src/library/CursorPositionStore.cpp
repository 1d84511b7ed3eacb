#include "CursorPositionStore.h"

#include "ExtendedAttributes.h"
#include "core/AppPaths.h"

#include <QFileInfo>
#include <QSettings>

namespace {
QString sideStoreKey(const QString &path)
{
    return QString::fromLatin1(
        QFileInfo(path).absoluteFilePath().toUtf8().toBase64(QByteArray::Base64UrlEncoding));
}
} // namespace

QByteArray CursorPositionStore::attributeName()
{
    return QByteArrayLiteral("user.com.tessaly.metadata:DocumentCursorPosition");
}

QString CursorPositionStore::sideStorePath()
{
    return AppPaths::supportFolder() + QStringLiteral("/CursorPositions.ini");
}

void CursorPositionStore::saveCurrentCursorPostionAtIndex(int index, const QString &path)
{
    if (!QFileInfo::exists(path))
        return;
    const QByteArray value = QByteArray::number(index);
    if (ExtendedAttributes::set(path, attributeName(), value))
        return;
    QSettings side(sideStorePath(), QSettings::IniFormat);
    side.setValue(QStringLiteral("positions/") + sideStoreKey(path), index);
}

int CursorPositionStore::getCursorPositionForDocument(const QString &path)
{
    QByteArray value;
    if (ExtendedAttributes::get(path, attributeName(), &value))
        return parseLocation(value);
    QSettings side(sideStorePath(), QSettings::IniFormat);
    const QVariant stored = side.value(QStringLiteral("positions/") + sideStoreKey(path));
    return stored.isValid() ? parseLocation(stored.toString().toUtf8()) : 0;
}

int CursorPositionStore::parseLocation(const QByteArray &value)
{
    qsizetype i = 0;
    while (i < value.size() && (value.at(i) == ' ' || value.at(i) == '\t' || value.at(i) == '\n'))
        ++i;
    bool negative = false;
    if (i < value.size() && (value.at(i) == '-' || value.at(i) == '+')) {
        negative = value.at(i) == '-';
        ++i;
    }
    qint64 number = 0;
    bool digits = false;
    while (i < value.size() && value.at(i) >= '0' && value.at(i) <= '9') {
        digits = true;
        number = number * 10 + (value.at(i) - '0');
        if (number > INT_MAX)
            number = INT_MAX;
        ++i;
    }
    if (!digits || negative)
        return 0;
    return int(number);
}
