#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// The files of one attachment folder on disk. Nothing here ever replaces an existing file:
// a name that is taken is reported, and the file already there stays as it was.
namespace AttachmentStore {
// The names of the files directly inside the folder, in the order the file system returns
// them; folders and ".DS_Store" are left out. A missing folder lists as empty.
QStringList list(const QString &folder);

// Creates the folder with its missing parents. False, with a reason, when it cannot.
bool ensureFolder(const QString &folder, QString *error = nullptr);

struct CopyResult
{
    bool ok = false;
    QString target;
    // A sentence for the user when ok is false.
    QString error;
};

// Copies source into the folder under its own name, creating the folder when needed. Fails
// when the name is taken, and when the copy on disk does not match the source in size.
CopyResult copyIn(const QString &folder, const QString &source);

// Writes data as a new file in the folder, atomically: a reader sees the whole file or none.
// Fails when the name is taken.
bool writeNew(const QString &folder, const QString &name, const QByteArray &data,
              QString *error = nullptr);

// Deletes the attachment at once. When it was the last file and removeEmptyFolder is set,
// the folder goes too (but never a folder that still holds anything, such as a subfolder).
bool remove(const QString &folder, const QString &name, bool removeEmptyFolder);

// Moves a file to the desktop trash. False (and the file left where it was) when no trash
// took it.
bool moveToTrash(const QString &path, QString *error = nullptr);
} // namespace AttachmentStore
