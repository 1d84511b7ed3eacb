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

QString resource(const QString &relativePath)
{
    QStringList roots;
    if (QCoreApplication::instance()) {
        roots << QCoreApplication::applicationDirPath() + QStringLiteral("/../") +
                     QStringLiteral(VELLOX_DATA_SUBDIR);
    }
    roots << QStringLiteral(VELLOX_BUILD_RESOURCES) << QStringLiteral(VELLOX_SOURCE_RESOURCES);
    for (const QString &root : std::as_const(roots)) {
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
