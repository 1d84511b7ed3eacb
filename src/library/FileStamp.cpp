#include "FileStamp.h"

#include "FileStatus.h"

FileStamp FileStamp::of(const QString &path)
{
    return of(FileStatus::of(path));
}

FileStamp FileStamp::of(const FileStatus &status)
{
    FileStamp stamp;
    if (!status.exists)
        return stamp;
    stamp.exists = true;
    stamp.modified = status.modified();
    stamp.size = status.size;
    return stamp;
}

bool FileStamp::operator==(const FileStamp &other) const
{
    if (exists != other.exists)
        return false;
    return !exists || (modified == other.modified && size == other.size);
}
