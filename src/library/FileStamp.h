#pragma once

#include <QDateTime>
#include <QString>

struct FileStatus;

// What a file was on disk when we last read or wrote it; a different stamp now means someone
// else wrote it in between.
struct FileStamp
{
    bool exists = false;
    QDateTime modified; // millisecond precision, from one stat
    qint64 size = -1;

    static FileStamp of(const QString &path);
    static FileStamp of(const FileStatus &status);

    bool operator==(const FileStamp &other) const; // exists, modified, size all equal
    bool operator!=(const FileStamp &other) const { return !(*this == other); }
};
