#include "PhpCompileCache.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>

namespace {

bool writeIfChanged(const QString &path, const QByteArray &content)
{
    QFile current(path);
    if (current.open(QIODevice::ReadOnly) && current.readAll() == content)
        return true;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(content);
    return file.commit();
}

} // namespace

QString PhpCompileCache::folder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QStringLiteral("/Vellox/php");
}

QProcessEnvironment PhpCompileCache::environment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString base = folder();
    const QString opcodes = base + QStringLiteral("/opcache");
    const QString settings = base + QStringLiteral("/ini");
    if (!QDir().mkpath(opcodes) || !QDir().mkpath(settings))
        return environment;
    // Only the file store: no shared memory segment per short-lived child.
    const QByteArray ini = "opcache.enable_cli=1\n"
                           "opcache.file_cache=\"" +
                           opcodes.toUtf8() +
                           "\"\n"
                           "opcache.file_cache_only=1\n"
                           "opcache.validate_timestamps=1\n";
    if (!writeIfChanged(settings + QStringLiteral("/vellox-opcache.ini"), ini))
        return environment;
    // An empty entry in the list stands for PHP's own folder, which must still be read.
    const QString scanned = environment.value(QStringLiteral("PHP_INI_SCAN_DIR"));
    environment.insert(QStringLiteral("PHP_INI_SCAN_DIR"), scanned + QLatin1Char(':') + settings);
    return environment;
}
