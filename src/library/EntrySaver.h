#pragma once

#include "FileStamp.h"
#include "TextFormat.h"

#include <QDateTime>
#include <QString>

// Writes an entry's text so that a crash, a full disk or a refused write leaves the old file
// as it was, and someone else's write in between is never overwritten.
class EntrySaver
{
public:
    struct Result
    {
        enum Status { Saved, ChangedOnDisk, Failed };
        Status status = Failed;
        bool created = false; // the file did not exist before this save
        QString error;        // for Failed: the system's reason ("No space left on device")
        FileStamp stamp;      // the file as it is now on disk after the write
        TextFormat format;    // as written (UTF-8 without BOM when the encoding cannot
                              // represent the text)
    };

    // Writes text ("\n" line breaks) atomically to path in format. When the file exists and
    // its stamp differs from expected (or expected says it did not exist but it does now),
    // nothing is written: ChangedOnDisk. Permissions, user.* extended attributes and the
    // creation date survive; modified, when valid, becomes the file's modification date.
    // A missing parent folder is not created: that is a Failed with the system's reason.
    static Result save(const QString &path, const QString &text, const TextFormat &format,
                       const FileStamp &expected, const QDateTime &modified = QDateTime());
    // "Save As…": no comparison, the same atomic write; a new file's creation date is its own.
    static Result saveCopy(const QString &path, const QString &text, const TextFormat &format);

    // The prefix of the temporary file each save writes beside the entry.
    static QString temporaryPrefix() { return QStringLiteral(".vlx-"); }
};
