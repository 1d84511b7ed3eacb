#include "ExtendedAttributes.h"

#include <QFile>

#include <sys/xattr.h>

namespace ExtendedAttributes {

bool set(const QString &path, const QByteArray &name, const QByteArray &value)
{
    const QByteArray p = QFile::encodeName(path);
    return setxattr(p.constData(), name.constData(), value.constData(), size_t(value.size()), 0) ==
           0;
}

bool get(const QString &path, const QByteArray &name, QByteArray *value)
{
    const QByteArray p = QFile::encodeName(path);
    const ssize_t size = getxattr(p.constData(), name.constData(), nullptr, 0);
    if (size < 0)
        return false;
    QByteArray buffer(qsizetype(size), '\0');
    const ssize_t got = getxattr(p.constData(), name.constData(), buffer.data(), size_t(size));
    if (got < 0)
        return false;
    buffer.resize(qsizetype(got));
    *value = buffer;
    return true;
}

QList<QPair<QByteArray, QByteArray>> readAll(const QString &path)
{
    QList<QPair<QByteArray, QByteArray>> result;
    const QByteArray p = QFile::encodeName(path);
    const ssize_t size = listxattr(p.constData(), nullptr, 0);
    if (size <= 0)
        return result;
    QByteArray names(qsizetype(size), '\0');
    const ssize_t got = listxattr(p.constData(), names.data(), size_t(size));
    if (got <= 0)
        return result;
    for (const QByteArray &name : names.left(qsizetype(got)).split('\0')) {
        QByteArray value;
        if (name.startsWith("user.") && get(path, name, &value))
            result.append({name, value});
    }
    return result;
}

void writeAll(const QString &path, const QList<QPair<QByteArray, QByteArray>> &attributes)
{
    for (const auto &attribute : attributes)
        set(path, attribute.first, attribute.second);
}

} // namespace ExtendedAttributes
