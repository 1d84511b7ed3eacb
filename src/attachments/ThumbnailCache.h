#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

// The desktop's shared thumbnail cache ("$XDG_CACHE_HOME/thumbnails/normal|large/", one PNG
// per file named by the MD5 of the file's URI). A cached picture counts only while its
// "Thumb::URI" names the file and its "Thumb::MTime" equals the file's modification time, so
// a changed file is never shown with an old picture. Pictures we make are written there too,
// where file managers find them.
class ThumbnailCache
{
public:
    enum Flavour { Normal = 128, Large = 256 };

    // root: the "thumbnails" folder; empty for the user's own.
    explicit ThumbnailCache(const QString &root = QString());

    QString root() const { return m_root; }
    static QByteArray uriFor(const QString &path);
    QString thumbnailPath(const QString &path, Flavour flavour) const;

    // The cached picture of the file, the normal size first, or a null image.
    QImage lookup(const QString &path) const;
    // Stores a picture of at most the flavour's size for the file, atomically and readable
    // only by the user, as the shared cache requires.
    bool store(const QString &path, const QImage &thumbnail, Flavour flavour = Normal) const;

private:
    QImage validAt(const QString &thumbnailFile, const QByteArray &uri, qint64 mtime) const;
    QString m_root;
};
