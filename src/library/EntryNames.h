#pragma once

#include <QString>

// Which titles can become file names.
namespace EntryNames {
// "" when title + "." + extension is a valid single file name here: a non-empty title
// without "/" or NUL whose file name fits the folder's name limit in UTF-8 bytes (255 where
// the folder does not say). Otherwise a short sentence for the user saying why.
QString problemWithTitle(const QString &title, const QString &extension,
                         const QString &folder = QString());
// The longest file name, in bytes, the folder accepts.
int maximumNameBytes(const QString &folder);
} // namespace EntryNames
