#pragma once

#include <QDateTime>
#include <QString>

// Reading and writing the text of one entry file.
class EntryFile
{
public:
    struct Loaded
    {
        QString text;
        int encoding = 4; // the number to write back with (TextEncoding)
        bool readable = true;
    };

    // The opening rules: strict UTF-8; else ICU's detector; else the run through encodings
    // 1 to 30, which ends in Mac OS Roman and saves back as UTF-8.
    static Loaded read(const QString &path);
    // Reads in a known encoding (the one the open entry was read in); false when the bytes
    // are not valid in it or the file cannot be read.
    static bool readWithEncoding(const QString &path, int encoding, QString *text);

    // Atomic write through a temporary file and rename, keeping the file's user extended
    // attributes. A text the encoding cannot represent is written as UTF-8 instead (never
    // lossily); *usedEncoding tells which one was written.
    static bool write(const QString &path, const QString &text, int encoding, int *usedEncoding,
                      QString *error);

    static QDateTime modificationDate(const QString &path);
    static QDateTime creationDate(const QString &path);
    static bool setModificationDate(const QString &path, const QDateTime &date);
};
