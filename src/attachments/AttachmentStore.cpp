#include "AttachmentStore.h"

#include "core/AppPaths.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace {
QString joined(const QString &folder, const QString &name)
{
    QString path = AppPaths::expandTilde(folder);
    if (!path.endsWith(QLatin1Char('/')))
        path += QLatin1Char('/');
    return path + name;
}

void setError(QString *error, const QString &text)
{
    if (error)
        *error = text;
}

QString nameTaken(const QString &name)
{
    //% "“%1” is already attached to this entry; the file there was left as it is."
    return qtTrId("ATTACHMENT_NAME_TAKEN").arg(name);
}
} // namespace

namespace AttachmentStore {

QStringList list(const QString &folder)
{
    QStringList names;
    if (folder.isEmpty())
        return names;
    QDirIterator it(AppPaths::expandTilde(folder),
                    QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    while (it.hasNext()) {
        it.next();
        const QFileInfo info = it.fileInfo();
        if (info.isDir() || info.fileName() == QLatin1String(".DS_Store"))
            continue;
        names << info.fileName();
    }
    return names;
}

bool ensureFolder(const QString &folder, QString *error)
{
    const QString path = AppPaths::expandTilde(folder);
    if (QFileInfo(path).isDir() || QDir().mkpath(path))
        return true;
    //% "The attachment folder “%1” could not be created."
    setError(error, qtTrId("ATTACHMENT_FOLDER_FAILED").arg(path));
    return false;
}

CopyResult copyIn(const QString &folder, const QString &source)
{
    CopyResult result;
    const QFileInfo from(source);
    result.target = joined(folder, from.fileName());
    if (!ensureFolder(folder, &result.error))
        return result;
    if (QFileInfo::exists(result.target) || QFileInfo(result.target).isSymLink()) {
        result.error = nameTaken(from.fileName());
        return result;
    }
    QFile file(source);
    if (!file.copy(result.target)) {
        //% "“%1” could not be copied: %2"
        result.error = qtTrId("ATTACHMENT_COPY_FAILED").arg(from.fileName(), file.errorString());
        return result;
    }
    // A short copy (a full disk, a source that shrank) is not an attachment the source may be
    // thrown away for.
    if (QFileInfo(result.target).size() != QFileInfo(source).size()) {
        QFile::remove(result.target);
        //% "“%1” could not be copied completely."
        result.error = qtTrId("ATTACHMENT_COPY_SHORT").arg(from.fileName());
        return result;
    }
    result.ok = true;
    return result;
}

bool writeNew(const QString &folder, const QString &name, const QByteArray &data, QString *error)
{
    if (!ensureFolder(folder, error))
        return false;
    const QString target = joined(folder, name);
    if (QFileInfo::exists(target) || QFileInfo(target).isSymLink()) {
        setError(error, nameTaken(name));
        return false;
    }
    QSaveFile file(target);
    file.setDirectWriteFallback(false);
    if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size() || !file.commit()) {
        //% "“%1” could not be written: %2"
        setError(error, qtTrId("ATTACHMENT_WRITE_FAILED").arg(name, file.errorString()));
        return false;
    }
    return true;
}

bool remove(const QString &folder, const QString &name, bool removeEmptyFolder)
{
    const bool removed = QFile::remove(joined(folder, name));
    if (removed && removeEmptyFolder) {
        // rmdir refuses a folder that is not empty, so nothing else in it can be lost.
        QDir().rmdir(AppPaths::expandTilde(folder));
    }
    return removed;
}

bool moveToTrash(const QString &path, QString *error)
{
    // Without the data folder Qt would "trash" into ./files/ and report success.
    QDir().mkpath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    QString inTrash;
    if (QFile::moveToTrash(path, &inTrash) && QFileInfo(inTrash).isAbsolute())
        return true;
    //% "“%1” could not be moved to the trash; it stays where it was."
    setError(error, qtTrId("ATTACHMENT_TRASH_FAILED").arg(path));
    return false;
}

} // namespace AttachmentStore
