#include "StyleFolderSeeder.h"

#include <QDir>
#include <QFile>
#include <QtDebug>

QStringList StyleFolderSeeder::builtInStyleNames()
{
    return {QStringLiteral("Standard"), QStringLiteral("Delicious Contrast"),
            QStringLiteral("Delicious White"), QStringLiteral("Standard Night")};
}

bool StyleFolderSeeder::seed(const QString &styleFolder, const QString &resourceFolder)
{
    QDir dir(styleFolder);
    if (dir.exists())
        return false;
    if (!QDir().mkpath(styleFolder))
        qWarning().noquote()
            << QStringLiteral("ERROR: %1")
                   .arg(QStringLiteral("could not create the style folder %1").arg(styleFolder));

    // Every copy is tried before any failure is reported, in the styles' order.
    const QStringList names = builtInStyleNames();
    QList<bool> copied;
    for (const QString &name : names) {
        const QString source = resourceFolder + QLatin1Char('/') + name + QStringLiteral(".css");
        const QString target = dir.filePath(name + QStringLiteral(".css"));
        copied << QFile::copy(source, target);
        if (copied.last())
            QFile(target).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup |
                                         QFile::ReadOther);
    }
    for (int i = 0; i < names.size(); ++i) {
        if (!copied.at(i))
            qWarning().noquote() << QStringLiteral("ERRORCOPY%1 %2 ")
                                        .arg(i + 1)
                                        .arg(QStringLiteral("could not copy %1.css from %2")
                                                 .arg(names.at(i), resourceFolder));
    }
    return true;
}
