#pragma once

#include <QString>

// Entries renamed, copied, moved and thrown away together with the attachments folder that
// sits beside them (the entry's path without its extension; a TextBundle carries its own
// "assets" inside). Nothing is ever lost on the way: an operation that fails part-way puts
// back what it had done, a move deletes its source only after a complete copy, and every
// failure says why.
namespace EntryFileOperations {

struct Outcome
{
    bool ok = false;
    // The entry's path afterwards (rename, copy, move) or its place in the trash.
    QString path;
    // For the user: what did not work and why ("Permission denied").
    QString error;
};

// "/n/Day.txt" -> "/n/Day", "/n/Day.textbundle" -> "/n/Day".
QString attachmentsFolderBeside(const QString &entryPath);

// The entry and its attachments folder go to the desktop's trash (freedesktop Trash 1.0),
// each with its ".trashinfo", so the file manager can restore them.
Outcome moveToTrash(const QString &entryPath);

// The entry becomes newTitle + "." + its own extension in the same folder, its attachments
// folder newTitle. Refused when either new name is taken.
Outcome rename(const QString &entryPath, const QString &newTitle);

// Where fileName lands in targetFolder: as it is when free, else "<name> (c).<ext>" for the
// first c from 2 whose entry and attachments folder are both free.
QString numberedDestination(const QString &targetFolder, const QString &fileName);

// Copies the entry (file or bundle folder) and its attachments folder into targetFolder
// under numberedDestination(); the copy keeps the entry's creation date. With
// deleteOriginal the source goes afterwards, and only when everything was copied.
Outcome copyTo(const QString &entryPath, const QString &targetFolder, bool deleteOriginal);

// A folder and everything in it; false (with the reason) at the first item that failed.
bool copyFolder(const QString &from, const QString &to, QString *error);

} // namespace EntryFileOperations
