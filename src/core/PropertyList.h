#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

// XML property lists (version 1.0, the form macOS tools read and write).
//
// Types: dict <-> QVariantMap, array <-> QVariantList, string <-> QString,
// integer <-> qlonglong (qulonglong above its range), real <-> double, true/false <-> bool,
// data <-> QByteArray (base64), date <-> QDateTime in UTC ("2024-05-01T09:30:00Z").
// When writing, QVariantHash and QStringList are accepted as dict and array, other integer
// and floating types as integer and real, QDate as a date at midnight UTC; anything else
// that converts to text is written as a string.
//
// Every character of a string survives a round trip, including the control characters
// XML 1.0 cannot carry literally (written as numeric references and read back here).
namespace PropertyList {
// Reads the file at path. On failure (missing, unreadable, empty, malformed) returns an
// invalid QVariant and, if error is given, a short description of the problem.
QVariant read(const QString &path, QString *error = nullptr);
// Parses a property list held in memory; failures as for read().
QVariant fromXml(const QByteArray &data, QString *error = nullptr);
// The complete document: header, DOCTYPE, <plist version="1.0"> and the value.
QByteArray toXml(const QVariant &value);
// Writes the document atomically: either the whole new file is in place or the old one is
// left untouched. Returns false and describes the problem in *error on failure.
bool write(const QString &path, const QVariant &value, QString *error = nullptr);
} // namespace PropertyList
