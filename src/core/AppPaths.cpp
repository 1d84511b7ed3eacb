#include "AppPaths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace AppPaths {

QString supportFolder()
{
    const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const QString folder = base + QStringLiteral("/Vellox");
    QDir().mkpath(folder);
    return folder;
}

QString cssStyleFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/Vellox/CSSStyles/");
}

// An installed binary finds everything under its own prefix (share/vellox beside bin/) and
// nowhere else, so a copy installed from a tree that later changes never reads that tree.
// Only a binary run from its build folder falls back to the build and source trees.
QStringList resourceRoots()
{
    if (QCoreApplication::instance()) {
        const QString installed =
            QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../") +
                            QStringLiteral(VELLOX_DATA_SUBDIR));
        if (QFileInfo(installed).isDir())
            return {installed};
    }
    return {QStringLiteral(VELLOX_BUILD_RESOURCES), QStringLiteral(VELLOX_SOURCE_RESOURCES)};
}

QString resource(const QString &relativePath)
{
    for (const QString &root : resourceRoots()) {
        const QString candidate = QDir::cleanPath(root + QLatin1Char('/') + relativePath);
        if (QFileInfo::exists(candidate))
            return candidate;
    }
    return QString();
}

QString expandTilde(const QString &path)
{
    if (path == QLatin1String("~"))
        return QDir::homePath();
    if (path.startsWith(QLatin1String("~/")))
        return QDir::homePath() + path.mid(1);
    return path;
}

} // namespace AppPaths
