#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

struct FileStatus;

// The creation date listed for an entry. Every save replaces the file by a new one, so the
// date the entry was first written is carried along in an extended attribute (or, where the
// file system keeps none, in a side store keyed by path).
namespace CreationDate {
QByteArray attributeName(); // "user.vellox.created"
// The attribute's value for a date: ISO 8601 in UTC with milliseconds.
QByteArray attributeValue(const QDateTime &date);

// The carried date first, then the file's birth time, then its modification date; invalid
// for a missing path.
QDateTime of(const QString &path);
// The same with a status already taken, so a listing asks the file system once per entry.
QDateTime of(const QString &path, const FileStatus &status);

// of() for an existing file in milliseconds since the epoch, for listings that format many
// dates and would rather not make a local QDateTime of each.
qint64 msecsOf(const QByteArray &encodedPath, const FileStatus &status);

// Makes date the one carried for path.
bool carry(const QString &path, const QDateTime &date);
// For rename, move and duplicate: to gets from's date (call while from still exists).
bool copy(const QString &from, const QString &to);
} // namespace CreationDate
