#include "AttachmentNames.h"

namespace {
// A name made from a link must stay inside the attachment folder.
QString lastComponent(const QUrl &url)
{
    QString name = url.fileName(QUrl::FullyDecoded);
    if (name == QLatin1String(".") || name == QLatin1String(".."))
        name.clear();
    return name;
}
} // namespace

namespace AttachmentNames {

QString forcedJpegName(const QString &name)
{
    const int dot = name.lastIndexOf(QLatin1Char('.'));
    if (dot < 0)
        return name + QStringLiteral(".jpg");
    return name.left(dot) + QStringLiteral(".jpg");
}

QString droppedImageName(const QUrl &source)
{
    const QString name = lastComponent(source);
    return forcedJpegName(name.isEmpty() ? FallbackImageName : name);
}

QString downloadName(const QUrl &url)
{
    const QString name = lastComponent(url);
    if (name.isEmpty())
        return FallbackImageName;
    if (!name.contains(QLatin1Char('.')))
        return name + QStringLiteral(".jpg");
    return name;
}

} // namespace AttachmentNames
