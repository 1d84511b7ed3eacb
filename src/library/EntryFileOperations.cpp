#include "EntryFileOperations.h"

#include "CreationDate.h"
#include "EntryDirectory.h"

#include <QDebug>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace EntryFileOperations {

namespace {

QString systemReason()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

bool isFolder(const QString &path)
{
    return QFileInfo(path).isDir();
}

bool existsAtAll(const QString &path)
{
    // A dangling symbolic link is still a name that is taken.
    return QFileInfo(path).exists() || QFileInfo(path).isSymLink();
}

// One item to the trash. Qt 6.4 computes the trash folder relative to the working folder
// when the data folder is missing, moves the item there and still reports success: the data
// folder is made first, and a place in the trash that is not absolute is undone.
bool trashOne(const QString &path, QString *pathInTrash, QString *error)
{
    QDir().mkpath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    QString where;
    QFile file(path);
    if (!file.moveToTrash()) {
        *error = file.errorString();
        return false;
    }
    where = file.fileName();
    if (!QFileInfo(where).isAbsolute()) {
        QFile::rename(where, path);
        *error = QStringLiteral("no trash folder could be used");
        return false;
    }
    *pathInTrash = where;
    return true;
}

bool removeItem(const QString &path)
{
    if (isFolder(path) && !QFileInfo(path).isSymLink())
        return QDir(path).removeRecursively();
    return QFile::remove(path);
}

bool copyItem(const QString &from, const QString &to, QString *error)
{
    if (isFolder(from))
        return copyFolder(from, to, error);
    QFile source(from);
    if (!source.copy(to)) {
        *error = source.errorString();
        return false;
    }
    return true;
}

} // namespace

QString attachmentsFolderBeside(const QString &entryPath)
{
    const QFileInfo info(entryPath);
    return info.path() + QLatin1Char('/') + EntryDirectory::deletingPathExtension(info.fileName());
}

bool copyFolder(const QString &from, const QString &to, QString *error)
{
    if (!QDir().mkpath(to)) {
        *error = systemReason();
        return false;
    }
    QDirIterator it(from, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    while (it.hasNext()) {
        const QString item = it.next();
        const QString target = to + QLatin1Char('/') + it.fileName();
        if (!copyItem(item, target, error)) {
            *error = QStringLiteral("%1: %2").arg(it.fileName(), *error);
            return false;
        }
    }
    return true;
}

Outcome moveToTrash(const QString &entryPath)
{
    Outcome outcome;
    if (!existsAtAll(entryPath)) {
        outcome.error = QStringLiteral("%1 does not exist").arg(entryPath);
        return outcome;
    }
    if (!trashOne(entryPath, &outcome.path, &outcome.error))
        return outcome;
    const QString attachments = attachmentsFolderBeside(entryPath);
    QString attachmentsInTrash;
    if (isFolder(attachments) && !trashOne(attachments, &attachmentsInTrash, &outcome.error)) {
        // Both stay where they were, so nothing is split between the trash and the notebook.
        QFile::rename(outcome.path, entryPath);
        QFile::remove(QFileInfo(outcome.path).path() + QStringLiteral("/../info/") +
                      QFileInfo(outcome.path).fileName() + QStringLiteral(".trashinfo"));
        outcome.path.clear();
        return outcome;
    }
    outcome.ok = true;
    return outcome;
}

Outcome rename(const QString &entryPath, const QString &newTitle)
{
    Outcome outcome;
    const QFileInfo info(entryPath);
    const QString extension = EntryDirectory::pathExtension(info.fileName());
    const QString folder = info.path() + QLatin1Char('/');
    const QString newPath =
        folder + newTitle + (extension.isEmpty() ? QString() : QLatin1Char('.') + extension);
    const QString attachments = attachmentsFolderBeside(entryPath);
    const QString newAttachments = folder + newTitle;
    const bool carryAttachments = isFolder(attachments) && attachments != newAttachments;
    if (newPath == entryPath) {
        outcome.ok = true;
        outcome.path = newPath;
        return outcome;
    }
    if (!existsAtAll(entryPath)) {
        outcome.error = QStringLiteral("%1 does not exist").arg(info.fileName());
        return outcome;
    }
    if (existsAtAll(newPath) || (carryAttachments && existsAtAll(newAttachments))) {
        outcome.error = QStringLiteral("%1 already exists")
                            .arg(existsAtAll(newPath) ? QFileInfo(newPath).fileName() : newTitle);
        return outcome;
    }
    if (::rename(QFile::encodeName(entryPath).constData(),
                 QFile::encodeName(newPath).constData()) != 0) {
        outcome.error = systemReason();
        return outcome;
    }
    if (carryAttachments && ::rename(QFile::encodeName(attachments).constData(),
                                     QFile::encodeName(newAttachments).constData()) != 0) {
        outcome.error = systemReason();
        ::rename(QFile::encodeName(newPath).constData(), QFile::encodeName(entryPath).constData());
        return outcome;
    }
    outcome.ok = true;
    outcome.path = newPath;
    return outcome;
}

QString numberedDestination(const QString &targetFolder, const QString &fileName)
{
    const QString folder =
        targetFolder.endsWith(QLatin1Char('/')) ? targetFolder.chopped(1) : targetFolder;
    const QString plain = folder + QLatin1Char('/') + fileName;
    if (!existsAtAll(plain))
        return plain;
    const QString name = EntryDirectory::deletingPathExtension(fileName);
    const QString extension = EntryDirectory::pathExtension(fileName);
    for (int c = 2;; ++c) {
        const QString base = QStringLiteral("%1/%2 (%3)").arg(folder, name).arg(c);
        const QString candidate = extension.isEmpty() ? base : base + QLatin1Char('.') + extension;
        if (!existsAtAll(candidate) && !existsAtAll(base))
            return candidate;
    }
}

Outcome copyTo(const QString &entryPath, const QString &targetFolder, bool deleteOriginal)
{
    Outcome outcome;
    if (!existsAtAll(entryPath)) {
        outcome.error = QStringLiteral("%1 does not exist").arg(entryPath);
        return outcome;
    }
    if (!isFolder(targetFolder)) {
        outcome.error = QStringLiteral("the folder %1 does not exist").arg(targetFolder);
        return outcome;
    }
    const QString destination = numberedDestination(targetFolder, QFileInfo(entryPath).fileName());
    const QString attachments = attachmentsFolderBeside(entryPath);
    const QString destinationAttachments = attachmentsFolderBeside(destination);
    QString error;
    bool copied = copyItem(entryPath, destination, &error);
    if (copied && isFolder(attachments))
        copied = copyFolder(attachments, destinationAttachments, &error);
    if (!copied) {
        qWarning().noquote() << QStringLiteral("ERROR: %1").arg(error);
        // Only what this copy made is taken away; both names were free before it.
        removeItem(destination);
        if (isFolder(attachments))
            removeItem(destinationAttachments);
        outcome.error = error;
        return outcome;
    }
    CreationDate::copy(entryPath, destination);
    outcome.path = destination;
    if (deleteOriginal) {
        if (!removeItem(entryPath)) {
            outcome.error = systemReason();
            return outcome;
        }
        if (isFolder(attachments) && !removeItem(attachments)) {
            outcome.error = systemReason();
            return outcome;
        }
    }
    outcome.ok = true;
    return outcome;
}

} // namespace EntryFileOperations
