#include "EntryNames.h"

#include <QFile>

#include <unistd.h>

namespace EntryNames {

int maximumNameBytes(const QString &folder)
{
    if (!folder.isEmpty()) {
        const long limit = ::pathconf(QFile::encodeName(folder).constData(), _PC_NAME_MAX);
        if (limit > 0)
            return int(qMin<long>(limit, 4096));
    }
    return 255;
}

QString problemWithTitle(const QString &title, const QString &extension, const QString &folder)
{
    if (title.isEmpty())
        //% "An entry needs a title before it can be saved."
        return qtTrId("ENTRY_TITLE_EMPTY");
    if (title.contains(QLatin1Char('/')))
        //% "A title cannot contain “/”: it would name a folder."
        return qtTrId("ENTRY_TITLE_HAS_SLASH");
    if (title.contains(QChar(0)))
        //% "A title cannot contain a null character."
        return qtTrId("ENTRY_TITLE_HAS_NUL");
    const QString name = title + QLatin1Char('.') + extension;
    const int limit = maximumNameBytes(folder);
    const qsizetype bytes = name.toUtf8().size();
    if (bytes > limit)
        //% "This title is too long for a file name: %1 bytes with the extension, at most %2."
        return qtTrId("ENTRY_TITLE_TOO_LONG").arg(bytes).arg(limit);
    return QString();
}

} // namespace EntryNames
