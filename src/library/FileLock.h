#pragma once

#include <QString>

// The immutable flag of a file or folder (chattr +i), which makes every write fail.
class FileLock
{
public:
    static bool isImmutable(const QString &path);
    // On failure *error holds the system's description.
    static bool setImmutable(const QString &path, bool immutable, QString *error = nullptr);
};
