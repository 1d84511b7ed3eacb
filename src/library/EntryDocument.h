#pragma once

#include "library/EntryLoader.h"
#include "library/FileStamp.h"
#include "library/TextFormat.h"

#include <QDateTime>
#include <QString>

// The entry the editor shows: where its text file is, what that file was on disk when we
// last read or wrote it, and how to write the editor's text back without losing a word.
// It never writes over a file that changed since (another program, a sync client), never
// creates a missing notebook folder, and reports every failure with the system's reason.
class EntryDocument
{
public:
    EntryDocument() = default;
    // notebookPath ends in "/"; title is the entry's name without extension.
    EntryDocument(const QString &notebookPath, const QString &title, const QString &extension);

    bool isValid() const { return !m_notebookPath.isEmpty() && !m_title.isEmpty(); }
    QString notebookPath() const { return m_notebookPath; }
    QString title() const { return m_title; }
    QString extension() const { return m_extension; }
    QString fileName() const; // title + "." + extension
    bool isBundle() const;
    QString entryPath() const; // the file, or the bundle folder
    // The text file to read or write: inside the bundle the existing "text.*" item, else
    // "text.<extension of language>".
    QString textPath(int language) const;

    struct Loaded
    {
        bool exists = false;
        bool readable = true;
        QString text;
        QString path;
        QString error;
    };
    // Reads the text file with encoding detection; remembers its format and stamp. A missing
    // file gives "" and keeps the format and stamp as they were.
    Loaded load(int language);
    // Reads it again in the known format (the window became active, a watcher fired).
    Loaded reload(int language);

    enum class Outcome { Saved, Created, Deleted, ChangedOnDisk, Failed };
    struct Saved
    {
        Outcome outcome = Outcome::Failed;
        QString path;
        QString error; // the system's reason, for Failed
        bool ok() const { return outcome != Outcome::ChangedOnDisk && outcome != Outcome::Failed; }
    };
    // Saves text (an empty text deletes the text file); cursor goes into the cursor store.
    Saved save(const QString &text, int cursor, int language);
    // The user chose their text over a file changed elsewhere: the other text is kept beside
    // the entry (its path in *keptAs) and then the editor's text is saved.
    Saved saveKeepingMine(const QString &text, int cursor, int language, QString *keptAs);

    // The file is no longer what we last read or wrote.
    bool changedOnDisk(int language) const;
    FileStamp stamp() const { return m_stamp; }
    TextFormat format() const { return m_format; }
    void setFormat(const TextFormat &format) { m_format = format; }

private:
    // What was read becomes the document's format and stamp.
    void take(const EntryLoader::Result &result, Loaded *loaded);

    QString m_notebookPath;
    QString m_title;
    QString m_extension;
    TextFormat m_format;
    FileStamp m_stamp;
};
