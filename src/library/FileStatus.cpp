#include "FileStatus.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

namespace {
qint64 toMs(const struct statx_timestamp &t)
{
    return qint64(t.tv_sec) * 1000 + t.tv_nsec / 1000000;
}

FileStatus fromStatx(const struct statx &stx)
{
    FileStatus s;
    s.exists = true;
    s.isDirectory = S_ISDIR(stx.stx_mode);
    s.size = qint64(stx.stx_size);
    s.modifiedMs = toMs(stx.stx_mtime);
    s.hasBirth = stx.stx_mask & STATX_BTIME;
    if (s.hasBirth)
        s.birthMs = toMs(stx.stx_btime);
    s.mode = stx.stx_mode & 07777;
    s.owner = stx.stx_uid;
    s.group = stx.stx_gid;
    return s;
}

constexpr unsigned kWanted =
    STATX_TYPE | STATX_MODE | STATX_UID | STATX_GID | STATX_SIZE | STATX_MTIME | STATX_BTIME;
} // namespace

QDateTime FileStatus::modified() const
{
    return exists ? QDateTime::fromMSecsSinceEpoch(modifiedMs) : QDateTime();
}

QDateTime FileStatus::birth() const
{
    return exists && hasBirth ? QDateTime::fromMSecsSinceEpoch(birthMs) : QDateTime();
}

FileStatus FileStatus::of(const QString &path)
{
    return ofEncoded(QFile::encodeName(path));
}

FileStatus FileStatus::ofEncoded(const QByteArray &p)
{
    struct statx stx = {};
    if (p.isEmpty() || ::statx(AT_FDCWD, p.constData(), 0, kWanted, &stx) != 0)
        return FileStatus();
    return fromStatx(stx);
}

FileStatus FileStatus::ofDescriptor(int fd)
{
    struct statx stx = {};
    if (::statx(fd, "", AT_EMPTY_PATH, kWanted, &stx) != 0)
        return FileStatus();
    return fromStatx(stx);
}
