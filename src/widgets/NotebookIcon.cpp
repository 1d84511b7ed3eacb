#include "NotebookIcon.h"

#include <QFileIconProvider>
#include <QFileInfo>
#include <QIcon>
#include <QPainter>

namespace NotebookIcon {

QImage grayScale(const QImage &image)
{
    QImage grey = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < grey.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(grey.scanLine(y));
        for (int x = 0; x < grey.width(); ++x) {
            const QRgb pixel = line[x];
            const int luma = qGray(pixel);
            line[x] = qRgba(luma, luma, luma, qAlpha(pixel));
        }
    }
    return grey;
}

QImage forFolder(const QImage &own, const QString &folder, int size)
{
    QImage icon = own;
    if (icon.isNull()) {
        static QFileIconProvider provider;
        QIcon platform = folder.isEmpty() ? provider.icon(QFileIconProvider::Folder)
                                          : provider.icon(QFileInfo(folder));
        if (platform.isNull())
            platform = QIcon::fromTheme(QStringLiteral("folder"));
        icon = platform.pixmap(size, size).toImage();
    }
    if (icon.isNull()) {
        icon = QImage(size, size, QImage::Format_ARGB32);
        icon.fill(Qt::transparent);
        QPainter painter(&icon);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(QColor(0x3f, 0x7f, 0xbf));
        painter.setPen(Qt::NoPen);
        painter.drawRoundedRect(QRectF(2, 6, size - 4, size - 10), 4, 4);
    }
    return icon.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace NotebookIcon
