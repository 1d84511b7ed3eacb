#include "ThumbnailCache.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <QUrl>

#include <cstdio>

namespace {
const QString kUriKey = QStringLiteral("Thumb::URI");
const QString kMTimeKey = QStringLiteral("Thumb::MTime");
const QString kSizeKey = QStringLiteral("Thumb::Size");

QString flavourFolder(ThumbnailCache::Flavour flavour)
{
    return flavour == ThumbnailCache::Large ? QStringLiteral("large") : QStringLiteral("normal");
}

qint64 modificationTime(const QFileInfo &info)
{
    return info.lastModified().toSecsSinceEpoch();
}
} // namespace

ThumbnailCache::ThumbnailCache(const QString &root)
    : m_root(root)
{
    if (m_root.isEmpty())
        m_root = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
                 QStringLiteral("/thumbnails");
}

QByteArray ThumbnailCache::uriFor(const QString &path)
{
    return QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()).toEncoded();
}

QString ThumbnailCache::thumbnailPath(const QString &path, Flavour flavour) const
{
    const QByteArray md5 = QCryptographicHash::hash(uriFor(path), QCryptographicHash::Md5).toHex();
    return QStringLiteral("%1/%2/%3.png")
        .arg(m_root, flavourFolder(flavour), QString::fromLatin1(md5));
}

QImage ThumbnailCache::validAt(const QString &thumbnailFile, const QByteArray &uri,
                               qint64 mtime) const
{
    if (!QFileInfo::exists(thumbnailFile))
        return QImage();
    QImage image(thumbnailFile, "PNG");
    if (image.isNull() || image.text(kUriKey).toUtf8() != uri)
        return QImage();
    bool numeric = false;
    // Some writers store the time with a fraction; the whole seconds are what count.
    const qint64 stored = qint64(image.text(kMTimeKey).toDouble(&numeric));
    if (!numeric || stored != mtime)
        return QImage();
    return image;
}

QImage ThumbnailCache::lookup(const QString &path) const
{
    const QFileInfo info(path);
    if (!info.isFile())
        return QImage();
    const QByteArray uri = uriFor(path);
    const qint64 mtime = modificationTime(info);
    for (Flavour flavour : {Normal, Large}) {
        QImage image = validAt(thumbnailPath(path, flavour), uri, mtime);
        if (!image.isNull())
            return image;
    }
    return QImage();
}

bool ThumbnailCache::store(const QString &path, const QImage &thumbnail, Flavour flavour) const
{
    const QFileInfo info(path);
    if (thumbnail.isNull() || !info.isFile())
        return false;
    const QString target = thumbnailPath(path, flavour);
    const QString folder = QFileInfo(target).path();
    if (!QDir().mkpath(folder))
        return false;
    QFile::setPermissions(folder,
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    QImage image = thumbnail;
    if (image.width() > flavour || image.height() > flavour)
        image = image.scaled(flavour, flavour, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    image.setText(kUriKey, QString::fromUtf8(uriFor(path)));
    image.setText(kMTimeKey, QString::number(modificationTime(info)));
    image.setText(kSizeKey, QString::number(info.size()));
    image.setText(QStringLiteral("Software"), QStringLiteral("Vellox"));

    // Written under a temporary name and renamed, so a reader never sees half a picture;
    // QTemporaryFile creates it readable by the user only.
    QTemporaryFile temporary(folder + QStringLiteral("/vellox-XXXXXX.png"));
    if (!temporary.open() || !image.save(&temporary, "PNG") || !temporary.flush())
        return false;
    temporary.close();
    if (std::rename(QFile::encodeName(temporary.fileName()).constData(),
                    QFile::encodeName(target).constData()) != 0)
        return false;
    temporary.setAutoRemove(false);
    return true;
}
