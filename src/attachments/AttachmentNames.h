#pragma once

#include <QString>
#include <QUrl>

// How files that arrive without a name of their own are named in the attachment folder.
namespace AttachmentNames {
inline const QString FallbackImageName = QStringLiteral("downloadedImage.jpg");

// Dropped image data: the name from the dropped link (its last path component), else the
// fallback, always ending in ".jpg": an extension is replaced, a name without one gets it
// appended. Even "photo.png" becomes "photo.jpg"; the bytes are stored as they came.
QString droppedImageName(const QUrl &source);
QString forcedJpegName(const QString &name);

// A downloaded link: its last path component, "downloadedImage.jpg" when it has none, and
// ".jpg" appended when the name has no extension.
QString downloadName(const QUrl &url);
} // namespace AttachmentNames
