#include "ThumbnailMaker.h"

#include <QFileInfo>
#include <QImageReader>
#include <QMimeDatabase>
#include <QPainter>
#include <QPdfDocument>

namespace {
QSize fitted(QSize size, int bound)
{
    if (size.width() > bound || size.height() > bound)
        size.scale(bound, bound, Qt::KeepAspectRatio);
    return size.expandedTo(QSize(1, 1));
}

bool isPdf(const QString &path, const QMimeType &type)
{
    return type.inherits(QStringLiteral("application/pdf")) ||
           QFileInfo(path).suffix().compare(QLatin1String("pdf"), Qt::CaseInsensitive) == 0;
}
} // namespace

namespace ThumbnailMaker {

QImage renderImage(const QString &path, int size)
{
    QImageReader reader(path);
    reader.setAutoTransform(true);
    const QSize full = reader.size();
    if (!reader.canRead() || !full.isValid())
        return QImage();
    // Decoding at the small size keeps a 50-megapixel photo from ever being held whole.
    reader.setScaledSize(fitted(full, size));
    return reader.read();
}

QImage renderPdf(const QString &path, int size)
{
    QPdfDocument document;
    if (document.load(path) != QPdfDocument::Error::None || document.pageCount() < 1)
        return QImage();
    const QSize pageSize = fitted(document.pagePointSize(0).toSize(), size);
    QImage page = document.render(0, pageSize);
    if (page.isNull())
        return page;
    // Pages without a background of their own would show the list's colour through them.
    QImage paper(page.size(), QImage::Format_ARGB32_Premultiplied);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    painter.drawImage(0, 0, page);
    painter.end();
    return paper;
}

QImage thumbnailFor(const QString &path, const ThumbnailCache &cache)
{
    QImage cached = cache.lookup(path);
    if (!cached.isNull())
        return cached;
    static const QMimeDatabase database;
    const QMimeType type = database.mimeTypeForFile(path);
    QImage made;
    if (isPdf(path, type))
        made = renderPdf(path, MadeSize);
    else if (type.name().startsWith(QLatin1String("image/")))
        made = renderImage(path, MadeSize);
    if (!made.isNull())
        cache.store(path, made, ThumbnailCache::Normal);
    return made;
}

} // namespace ThumbnailMaker
