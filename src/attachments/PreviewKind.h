#pragma once

#include <QString>
#include <QUrl>

// How the preview window shows an attachment, decided by its extension in this order: PDF,
// a picture the image readers know, audio or video, a web page, a web archive, plain text,
// RTF, an RTFD package, and otherwise its icon and name.
namespace PreviewKind {
enum Kind { Pdf, Image, Media, Html, WebArchive, Text, Rtf, Rtfd, Other };

Kind forPath(const QString &path);
// Media extensions and type codes are matched exactly as written, case and all.
bool isMediaExtension(const QString &extension);
// The page that plays a media file, as wide as the window.
QString mediaPage(const QUrl &file);
} // namespace PreviewKind
