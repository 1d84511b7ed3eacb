#include "WorkingFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

QString WorkingFiles::readUtf8(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

bool WorkingFiles::writeUtf8(const QString &path, const QString &text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    const QByteArray bytes = text.toUtf8();
    return file.write(bytes) == bytes.size();
}

bool WorkingFiles::copy(const QString &from, const QString &to)
{
    QFile source(from);
    if (QFileInfo(from).isDir() || !source.open(QIODevice::ReadOnly))
        return false;
    QFile target(to);
    if (!target.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    // Attachments may be large: a slice at a time.
    constexpr qint64 kSlice = 1 << 20;
    while (!source.atEnd()) {
        const QByteArray slice = source.read(kSlice);
        if (slice.isEmpty() && source.error() != QFileDevice::NoError)
            break;
        if (target.write(slice) != slice.size()) {
            target.close();
            target.remove();
            return false;
        }
    }
    if (source.error() != QFileDevice::NoError) {
        target.close();
        target.remove();
        return false;
    }
    return true;
}

bool WorkingFiles::copyRecursively(const QString &from, const QString &to)
{
    if (!QFileInfo(from).isDir())
        return copy(from, to);
    QDir().mkpath(to);
    bool ok = true;
    const QDir dir(from);
    const auto entries = dir.entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
    for (const QString &name : entries)
        ok = copyRecursively(dir.filePath(name), to + QLatin1Char('/') + name) && ok;
    return ok;
}
