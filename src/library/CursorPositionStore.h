#pragma once

#include <QString>

// Where the cursor of an entry was when it was last saved: an extended attribute of the
// entry's text file holding the location as decimal text, or a per-user side store for file
// systems without extended attributes.
class CursorPositionStore
{
public:
    static QByteArray attributeName(); // "user.com.tessaly.metadata:DocumentCursorPosition"

    // A missing path does nothing. The file's modification date is left as it was.
    static void saveCurrentCursorPostionAtIndex(int index, const QString &path);
    // 0 when nothing is stored, the value has no leading digits, or is negative.
    static int getCursorPositionForDocument(const QString &path);

    // "12" -> 12, " 7x" -> 7, "-3" -> 0, "abc" -> 0.
    static int parseLocation(const QByteArray &value);

private:
    static QString sideStorePath();
};
