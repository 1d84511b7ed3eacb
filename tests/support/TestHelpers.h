#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>
#include <QTest>

// One row of a data-driven test on one line: the values in the order of the columns.
template <typename... Values> void addRow(const char *name, const Values &...values)
{
    (QTest::newRow(name) << ... << values);
}

inline void writeBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY2(file.open(QIODevice::WriteOnly | QIODevice::Truncate), qPrintable(path));
    file.write(bytes);
}

// Empty for a file that is missing, so a comparison shows what should have been there.
inline QByteArray readBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Everything in a folder, hidden files included, so stray temporary files show up too.
inline QStringList filesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                                  QDir::Name);
}
