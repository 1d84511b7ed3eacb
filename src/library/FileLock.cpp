#include "FileLock.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {
int openForFlags(const QString &path)
{
    return ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
}
} // namespace

bool FileLock::isImmutable(const QString &path)
{
    const int fd = openForFlags(path);
    if (fd < 0)
        return false;
    int flags = 0;
    const bool ok = ::ioctl(fd, FS_IOC_GETFLAGS, &flags) == 0;
    ::close(fd);
    return ok && (flags & FS_IMMUTABLE_FL);
}

bool FileLock::setImmutable(const QString &path, bool immutable, QString *error)
{
    const int fd = openForFlags(path);
    if (fd < 0) {
        if (error)
            *error = QString::fromLocal8Bit(std::strerror(errno));
        return false;
    }
    int flags = 0;
    bool ok = ::ioctl(fd, FS_IOC_GETFLAGS, &flags) == 0;
    if (ok) {
        flags = immutable ? (flags | FS_IMMUTABLE_FL) : (flags & ~FS_IMMUTABLE_FL);
        ok = ::ioctl(fd, FS_IOC_SETFLAGS, &flags) == 0;
    }
    const int savedErrno = errno;
    ::close(fd);
    if (!ok && error)
        *error = QString::fromLocal8Bit(std::strerror(savedErrno));
    return ok;
}
