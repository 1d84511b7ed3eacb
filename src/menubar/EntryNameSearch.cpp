#include "EntryNameSearch.h"

#include "library/EntryDirectory.h"
#include "library/EntryLoader.h"
#include "library/TextBundle.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

namespace {
QString expandTilde(const QString &path)
{
    if (path == QLatin1String("~") || path.startsWith(QLatin1String("~/")))
        return QDir::homePath() + path.mid(1);
    return path;
}
} // namespace

namespace EntryNameSearch {

QStringList listEntries(const QString &folder, const QString &extension)
{
    QStringList names;
    if (folder.isEmpty())
        return names;
    // QDirIterator hands the names over as readdir() returns them, unsorted.
    QDirIterator it(expandTilde(folder),
                    QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    while (it.hasNext()) {
        it.next();
        const QString name = it.fileName();
        if (EntryDirectory::pathExtension(name) == extension)
            names << name;
    }
    return names;
}

bool isBlank(const QString &text)
{
    return text.trimmed().isEmpty();
}

QStringList filter(const QStringList &names, const QString &text)
{
    QStringList kept;
    for (const QString &name : names)
        if (name.contains(text, Qt::CaseInsensitive))
            kept << name;
    return kept;
}

QString displayName(const QString &fileName)
{
    return EntryDirectory::deletingPathExtension(fileName);
}

QString readEntryText(const QString &folder, const QString &fileName)
{
    QString path = expandTilde(folder + QLatin1Char('/') + fileName);
    const QFileInfo info(path);
    if (!info.exists())
        return QString();
    if (info.isDir()) {
        // A TextBundle: what a reader wants is the text inside, not the folder.
        const QString text = TextBundle::textFileName(path);
        if (text.isEmpty())
            return QString();
        path += QLatin1Char('/') + text;
    }
    const EntryLoader::Result result = EntryLoader::load(path);
    return result.readable ? result.text : QString();
}

} // namespace EntryNameSearch
