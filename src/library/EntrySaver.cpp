#include "EntrySaver.h"

#include "CreationDate.h"
#include "ExtendedAttributes.h"
#include "FileStatus.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

QString systemError(int code)
{
    return QString::fromLocal8Bit(std::strerror(code));
}

// A link is written through, so the link stays a link and its target gets the text.
QString resolvedTarget(const QString &path)
{
    char resolved[PATH_MAX];
    if (::realpath(QFile::encodeName(path).constData(), resolved))
        return QFile::decodeName(resolved);
    return path;
}

// What open(2) would have given a new file; mkstemp makes it 0600. umask can only be read
// by setting it, so it is put straight back.
mode_t defaultMode()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

bool writeAll(int fd, const QByteArray &bytes)
{
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.constData() + done, size_t(bytes.size() - done));
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            return false;
        done += n;
    }
    return true;
}

// The temporary file: a short name of its own in the target's folder, so the rename is
// atomic and a target name of the full 255 bytes still leaves room for it.
class TemporaryFile
{
public:
    explicit TemporaryFile(const QString &target)
    {
        const QString folder = QFileInfo(target).path();
        m_name = QFile::encodeName(folder + QLatin1Char('/') + EntrySaver::temporaryPrefix() +
                                   QStringLiteral("XXXXXX"));
        m_fd = ::mkostemp(m_name.data(), O_CLOEXEC);
        if (m_fd < 0)
            m_error = errno;
        m_created = m_fd >= 0;
    }
    ~TemporaryFile()
    {
        if (m_fd >= 0)
            ::close(m_fd);
        if (m_created && !m_renamed)
            ::unlink(m_name.constData());
    }
    bool isOpen() const { return m_fd >= 0; }
    int fd() const { return m_fd; }
    int error() const { return m_error; }
    QString path() const { return QFile::decodeName(m_name); }
    // Closes and keeps the error of a delayed write-back, which some file systems report
    // only here.
    bool close()
    {
        const int fd = m_fd;
        m_fd = -1;
        if (::close(fd) != 0 && errno != EINTR) {
            m_error = errno;
            return false;
        }
        return true;
    }
    bool renameTo(const QString &target)
    {
        if (::rename(m_name.constData(), QFile::encodeName(target).constData()) != 0) {
            m_error = errno;
            return false;
        }
        m_renamed = true;
        return true;
    }
    bool fail()
    {
        m_error = errno;
        return false;
    }

private:
    QByteArray m_name;
    int m_fd = -1;
    int m_error = 0;
    bool m_created = false;
    bool m_renamed = false;
};

struct Carried
{
    mode_t mode = 0;
    uid_t owner = 0;
    gid_t group = 0;
    QList<QPair<QByteArray, QByteArray>> attributes;
    QDateTime created; // invalid: the new file's own
};

bool writeTemporary(TemporaryFile &file, const QByteArray &bytes, const Carried &carried,
                    bool existed, const QDateTime &modified)
{
    const int fd = file.fd();
    if (!writeAll(fd, bytes))
        return file.fail();
    // Ownership only changes where the user may (root saving someone else's entry).
    if (existed && (::fchown(fd, carried.owner, carried.group) != 0))
        errno = 0;
    if (::fchmod(fd, carried.mode) != 0)
        return file.fail();
    for (const auto &attribute : carried.attributes)
        ::fsetxattr(fd, attribute.first.constData(), attribute.second.constData(),
                    size_t(attribute.second.size()), 0);
    if (modified.isValid()) {
        const qint64 ms = modified.toMSecsSinceEpoch();
        const struct timespec times[2] = {{0, UTIME_OMIT},
                                          {time_t(ms / 1000), long(ms % 1000) * 1000000}};
        if (::futimens(fd, times) != 0)
            return file.fail();
    }
    if (::fsync(fd) != 0)
        return file.fail();
    return file.close();
}

void syncFolder(const QString &path)
{
    const int dir =
        ::open(QFile::encodeName(QFileInfo(path).path()).constData(), O_RDONLY | O_CLOEXEC);
    if (dir >= 0) {
        ::fsync(dir);
        ::close(dir);
    }
}

EntrySaver::Result write(const QString &requestedPath, const QString &text,
                         const TextFormat &format, const FileStamp *expected,
                         const QDateTime &modified)
{
    EntrySaver::Result result;
    const QString path = resolvedTarget(requestedPath);
    const FileStatus before = FileStatus::of(path);
    if (expected && before.exists && FileStamp::of(before) != *expected) {
        result.status = EntrySaver::Result::ChangedOnDisk;
        result.stamp = FileStamp::of(before);
        result.format = format;
        return result;
    }

    result.format = format;
    QByteArray bytes;
    if (!format.encode(text, &bytes)) {
        result.format.encoding = TextEncoding::UTF8;
        result.format.byteOrderMark = false;
        result.format.encode(text, &bytes);
    } else if (result.format.encoding == TextEncoding::UTF16WithBOM ||
               result.format.encoding == TextEncoding::UTF32WithBOM) {
        result.format.byteOrderMark = true;
    }

    Carried carried;
    carried.mode = before.exists ? mode_t(before.mode) : defaultMode();
    carried.owner = before.owner;
    carried.group = before.group;
    if (before.exists) {
        carried.attributes = ExtendedAttributes::readAll(path);
        carried.created = CreationDate::of(path, before);
        const QByteArray name = CreationDate::attributeName();
        const bool present = std::any_of(carried.attributes.cbegin(), carried.attributes.cend(),
                                         [&](const auto &a) { return a.first == name; });
        // The first save of a file records its birth time before the new file replaces it.
        if (!present)
            carried.attributes.append({name, CreationDate::attributeValue(carried.created)});
    }

    TemporaryFile file(path);
    if (!file.isOpen() || !writeTemporary(file, bytes, carried, before.exists, modified) ||
        !file.renameTo(path)) {
        result.status = EntrySaver::Result::Failed;
        result.error = systemError(file.error());
        result.stamp = FileStamp::of(path);
        return result;
    }
    syncFolder(path);
    // A file system without attributes keeps the date in the side store instead.
    if (carried.created.isValid()) {
        QByteArray present;
        if (!ExtendedAttributes::get(path, CreationDate::attributeName(), &present))
            CreationDate::carry(path, carried.created);
    }
    result.status = EntrySaver::Result::Saved;
    result.created = !before.exists;
    result.stamp = FileStamp::of(path);
    return result;
}

} // namespace

EntrySaver::Result EntrySaver::save(const QString &path, const QString &text,
                                    const TextFormat &format, const FileStamp &expected,
                                    const QDateTime &modified)
{
    return write(path, text, format, &expected, modified);
}

EntrySaver::Result EntrySaver::saveCopy(const QString &path, const QString &text,
                                        const TextFormat &format)
{
    return write(path, text, format, nullptr, QDateTime());
}
