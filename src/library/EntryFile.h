#pragma once

#include <QDateTime>
#include <QString>

// The older one-call interface to an entry's file, kept for callers not yet moved to
// EntryLoader, EntrySaver and CreationDate, which it is built on.
class EntryFile
{
public:
    struct Loaded
    {
        QString text;
        int encoding = 4; // the number to write back with (TextEncoding)
        bool readable = true;
    };

    static Loaded read(const QString &path);
    // Reads in a known encoding; false when the bytes are not valid in it or the file cannot
    // be read.
    static bool readWithEncoding(const QString &path, int encoding, QString *text);

    // Atomic write without comparison; a text the encoding cannot represent is written as
    // UTF-8 instead; *usedEncoding tells which one was written.
    static bool write(const QString &path, const QString &text, int encoding, int *usedEncoding,
                      QString *error);

    static QDateTime modificationDate(const QString &path);
    static QDateTime creationDate(const QString &path);
    static bool setModificationDate(const QString &path, const QDateTime &date);
};
