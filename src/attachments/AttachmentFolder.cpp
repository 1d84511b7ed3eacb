#include "AttachmentFolder.h"

#include "core/AppPaths.h"

#include <QFileInfo>

namespace {
QString withoutTrailingSlashes(QString path)
{
    while (path.size() > 1 && path.endsWith(QLatin1Char('/')))
        path.chop(1);
    return path;
}

// The file name's extension as the entry list sees it: after the last dot of the last
// component, and none for a name that starts with its only dot.
int extensionDot(const QString &path)
{
    const int slash = path.lastIndexOf(QLatin1Char('/'));
    const int dot = path.lastIndexOf(QLatin1Char('.'));
    return dot > slash + 1 ? dot : -1;
}
} // namespace

namespace AttachmentFolder {

QString forEntry(const QString &notebookFolder, const QString &entryName,
                 const QString &entryExtension)
{
    if (entryName.isEmpty())
        return QString();
    const QString notebook = withoutTrailingSlashes(AppPaths::expandTilde(notebookFolder));
    if (entryExtension == BundleExtension)
        return QStringLiteral("%1/%2.%3/%4/")
            .arg(notebook, entryName, BundleExtension, AssetsFolder);
    return QStringLiteral("%1/%2/").arg(notebook, entryName);
}

QString forEntryPath(const QString &entryPath)
{
    const QString path = withoutTrailingSlashes(AppPaths::expandTilde(entryPath));
    const int dot = extensionDot(path);
    if (dot >= 0 && path.mid(dot + 1) == BundleExtension)
        return path + QLatin1Char('/') + AssetsFolder + QLatin1Char('/');
    return (dot >= 0 ? path.left(dot) : path) + QLatin1Char('/');
}

QString companionFolder(const QString &entryPath)
{
    const QString path = withoutTrailingSlashes(AppPaths::expandTilde(entryPath));
    const int dot = extensionDot(path);
    if (dot >= 0 && path.mid(dot + 1) == BundleExtension)
        return QString();
    return dot >= 0 ? path.left(dot) : QString();
}

QString markupPrefix(const QString &entryExtension)
{
    return entryExtension == BundleExtension ? AssetsFolder + QLatin1Char('/') : QString();
}

} // namespace AttachmentFolder
