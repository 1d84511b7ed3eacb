#include "CreationDate.h"

#include "FileStatus.h"
#include "core/AppPaths.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>

#include <cerrno>
#include <sys/xattr.h>

namespace {
QString sideStorePath()
{
    return AppPaths::supportFolder() + QStringLiteral("/CreationDates.ini");
}

QString sideStoreKey(const QString &path)
{
    return QStringLiteral("dates/") +
           QString::fromLatin1(
               QFileInfo(path).absoluteFilePath().toUtf8().toBase64(QByteArray::Base64UrlEncoding));
}

QDateTime parse(const QByteArray &value)
{
    // Kept in UTC: a listing wants milliseconds, not a local date.
    return QDateTime::fromString(QString::fromLatin1(value), Qt::ISODateWithMs);
}

bool unsupported(int code)
{
    return code == ENOTSUP || code == EOPNOTSUPP;
}
} // namespace

namespace CreationDate {

QByteArray attributeName()
{
    return QByteArrayLiteral("user.vellox.created");
}

QByteArray attributeValue(const QDateTime &date)
{
    return date.toUTC().toString(Qt::ISODateWithMs).toLatin1();
}

QDateTime of(const QString &path)
{
    return of(path, FileStatus::of(path));
}

QDateTime of(const QString &path, const FileStatus &status)
{
    if (!status.exists)
        return QDateTime();
    return QDateTime::fromMSecsSinceEpoch(msecsOf(QFile::encodeName(path), status));
}

qint64 msecsOf(const QByteArray &encodedPath, const FileStatus &status)
{
    char buffer[64];
    const ssize_t got =
        ::getxattr(encodedPath.constData(), attributeName().constData(), buffer, sizeof buffer);
    if (got > 0) {
        const QDateTime carried = parse(QByteArray(buffer, qsizetype(got)));
        if (carried.isValid())
            return carried.toMSecsSinceEpoch();
    } else if (got < 0 && unsupported(errno)) {
        const QSettings side(sideStorePath(), QSettings::IniFormat);
        const QDateTime carried =
            parse(side.value(sideStoreKey(QFile::decodeName(encodedPath))).toByteArray());
        if (carried.isValid())
            return carried.toMSecsSinceEpoch();
    }
    return status.hasBirth ? status.birthMs : status.modifiedMs;
}

bool carry(const QString &path, const QDateTime &date)
{
    if (!date.isValid())
        return false;
    const QByteArray value = attributeValue(date);
    if (::setxattr(QFile::encodeName(path).constData(), attributeName().constData(),
                   value.constData(), size_t(value.size()), 0) == 0)
        return true;
    if (!unsupported(errno) || !QFileInfo::exists(path))
        return false;
    QSettings side(sideStorePath(), QSettings::IniFormat);
    side.setValue(sideStoreKey(path), QString::fromLatin1(value));
    side.sync();
    return side.status() == QSettings::NoError;
}

bool copy(const QString &from, const QString &to)
{
    return carry(to, of(from));
}

} // namespace CreationDate
