#pragma once

#include "BookmarkLink.h"
#include "QuickNote.h"

#include <QDateTime>
#include <QLocale>
#include <QString>

class NotebookRegistry;
class QuickNoteStore;

// Taking notes from outside the notes list: from the tray's capture panel into any notebook,
// and from a bookmarklet link into the notebook on display. Window-free, so the main window
// and the tray panel share it.
class QuickNoteCapture
{
public:
    QuickNoteCapture(QuickNoteStore &store, NotebookRegistry &registry);

    struct Result
    {
        bool added = false;
        // The notes file written to, or that could not be.
        QString path;
        // Where a damaged notes file of another notebook was copied before being replaced.
        QString damagedCopy;
        // Why the note was not added.
        QString error;
    };

    // Into the notebook at chosenIndex of the registry. The one on display (shownIndex)
    // goes through the store and shows at once; any other notebook's file is written
    // directly and its notes show when it is next selected.
    Result addNote(int chosenIndex, int shownIndex, const QuickNote &note);

    // Appends to the notes file at path, outside the store. A damaged file is copied aside
    // first, then replaced by a list holding the new note.
    static Result appendToFile(const QString &path, const QuickNote &note);

    // The note a valid link makes, titled with the moment given.
    static QuickNote noteFromLink(const BookmarkLink &link, const QDateTime &moment,
                                  const QLocale &locale);

private:
    QuickNoteStore &m_store;
    NotebookRegistry &m_registry;
};
