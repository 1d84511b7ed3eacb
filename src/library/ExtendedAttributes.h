#pragma once

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QString>

// The user-namespace extended attributes of a file.
namespace ExtendedAttributes {
bool set(const QString &path, const QByteArray &name, const QByteArray &value);
// False when the attribute is absent or the file system keeps none.
bool get(const QString &path, const QByteArray &name, QByteArray *value);
QList<QPair<QByteArray, QByteArray>> readAll(const QString &path);
void writeAll(const QString &path, const QList<QPair<QByteArray, QByteArray>> &attributes);
} // namespace ExtendedAttributes
