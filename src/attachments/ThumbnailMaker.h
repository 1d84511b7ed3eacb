#pragma once

#include "ThumbnailCache.h"

#include <QImage>
#include <QString>

// A small picture of a file: the shared cache's when it has a current one, else made from
// the file (pictures decoded straight to the small size, PDFs from their first page) and
// stored in the cache for the next time and for the file manager. A null image means the
// file's type has no picture; its icon stands in. Safe to call from worker threads.
namespace ThumbnailMaker {
// The longest side of the pictures made (the cache's "normal" size).
constexpr int MadeSize = ThumbnailCache::Normal;

QImage thumbnailFor(const QString &path, const ThumbnailCache &cache);

// Without the cache: the file decoded at most size by size, or a null image.
QImage renderImage(const QString &path, int size);
QImage renderPdf(const QString &path, int size);
} // namespace ThumbnailMaker
