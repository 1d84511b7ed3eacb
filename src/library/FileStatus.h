#pragma once

#include <QDateTime>
#include <QString>

// Everything one statx(2) call tells about a path (links followed), so listing and saving ask the
// file system once per file. Times are at millisecond precision; birth is invalid where the file
// system keeps none.
struct FileStatus
{
    bool exists = false;
    bool isDirectory = false;
    qint64 size = -1;
    // Milliseconds since the epoch: turning them into local dates costs more than the stat,
    // so only the callers that need a QDateTime make one.
    qint64 modifiedMs = 0;
    qint64 birthMs = 0;
    bool hasBirth = false;
    unsigned mode = 0; // permission bits only
    unsigned owner = 0;
    unsigned group = 0;

    QDateTime modified() const;
    QDateTime birth() const; // invalid where the file system keeps none

    static FileStatus of(const QString &path);
    static FileStatus ofEncoded(const QByteArray &encodedPath); // QFile::encodeName form
    // The file an open descriptor refers to, so a read and its status belong together even
    // when the path is replaced meanwhile.
    static FileStatus ofDescriptor(int fd);
};
