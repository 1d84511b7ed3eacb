#pragma once

#include "QuickNote.h"

#include <QList>
#include <QString>

// The notes file of a notebook: "_notes.stfn" in its folder, an XML property list whose root
// is an array of [title, text] string pairs in the order the notes were taken.
namespace QuickNoteFile {

inline const QString FileName = QStringLiteral("_notes.stfn");

// From the main window's notebook path, which always ends in "/".
QString pathInSavePath(const QString &savePath);
// From a notebook record's folder (no trailing slash).
QString pathInNotebookFolder(const QString &documentPath);

struct Contents
{
    enum Status { Missing, Read, Damaged };
    Status status = Missing;
    QList<QuickNote> notes;
    // Why a Damaged file could not be used.
    QString error;
};

// A file that is unreadable, not a property list, or holds anything but [string, string]
// pairs is Damaged: writing our list over it would destroy notes we could not read.
Contents read(const QString &path);
// Atomic: the old file stays whole when anything fails.
bool write(const QString &path, const QList<QuickNote> &notes, QString *error = nullptr);
// Copies a damaged file to "<path>.damaged" (or "<path>.damaged-2", "-3", ... when taken) and
// returns the copy's path; empty when the copy failed.
QString keepDamagedCopy(const QString &path);

} // namespace QuickNoteFile
