#pragma once

#include "FileStamp.h"
#include "TextFormat.h"

#include <QString>

// Reads an entry's text and remembers how its bytes were laid out.
class EntryLoader
{
public:
    struct Result
    {
        bool readable = true; // false: the file could not be opened or read; error says why
        QString text;         // line breaks as "\n" whatever the file has; no BOM character
        TextFormat format;
        FileStamp stamp; // taken with the read
        QString error;   // the system's reason, e.g. "Permission denied"
    };

    // Strict UTF-8; else a byte-order mark; else UTF-16/32 without a mark (bytes with NULs in
    // the pattern of that encoding); else ICU's detector and the legacy 8-bit guess; else the
    // run through encodings 1..30, which ends in Mac OS Roman and saves back as UTF-8.
    static Result load(const QString &path);
    // Re-reading an entry already open: in the known format, falling back to load()'s rules
    // when the bytes do not decode in it.
    static Result reload(const QString &path, const TextFormat &format);

    // The decoding part of load() on bytes already read.
    static Result decode(const QByteArray &bytes);
};
