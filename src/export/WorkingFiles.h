#pragma once

#include <QString>

// Reading, writing and copying the export's working files. Nothing here syncs to disk:
// QFile::copy does for every file, which cost an export of a few hundred entries seconds, and
// the working files are thrown away at the end of the run anyway (the destination only
// receives finished files, moved in whole).
struct WorkingFiles
{
    static QString readUtf8(const QString &path);
    static bool writeUtf8(const QString &path, const QString &text);
    // Copies a file, replacing whatever file is at to.
    static bool copy(const QString &from, const QString &to);
    // Copies a file or a folder with everything in it.
    static bool copyRecursively(const QString &from, const QString &to);
};
