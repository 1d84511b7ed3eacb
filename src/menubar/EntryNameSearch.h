#pragma once

#include <QString>
#include <QStringList>

// The capture panel's search: which entries of a notebook it lists, which of them a search
// text keeps, and what it shows of one. Read-only: nothing here writes to a notebook.
namespace EntryNameSearch {

// Names of the items directly inside the folder (files and TextBundle folders) whose
// extension equals the given one exactly, in the order the file system returns them.
QStringList listEntries(const QString &folder, const QString &extension);

// A search text of only blanks and line breaks stands for "everything".
bool isBlank(const QString &text);

// The names that contain the text, ignoring case; the text is taken as typed, untrimmed.
// Only names are searched, never what the entries say.
QStringList filter(const QStringList &names, const QString &text);

// The row text: the file name without its extension.
QString displayName(const QString &fileName);

// What the entry says: a plain entry's text, or a TextBundle's text file. Empty when the
// entry is gone or unreadable. A leading "~" of the folder is the home folder.
QString readEntryText(const QString &folder, const QString &fileName);

} // namespace EntryNameSearch
