#include "ScaledImageView.h"

#include <QImageReader>
#include <QPainter>

ScaledImageView::ScaledImageView(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("attachmentImageView"));
}

bool ScaledImageView::load(const QString &path, const QSize &bound)
{
    QImageReader reader(path);
    reader.setAutoTransform(true);
    QSize size = reader.size();
    if (size.isValid() && (size.width() > bound.width() || size.height() > bound.height())) {
        size.scale(bound, Qt::KeepAspectRatio);
        reader.setScaledSize(size.expandedTo(QSize(1, 1)));
    }
    m_image = reader.read();
    update();
    return !m_image.isNull();
}

void ScaledImageView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (m_image.isNull())
        return;
    QSize size = m_image.size();
    if (size.width() > width() || size.height() > height())
        size.scale(this->size(), Qt::KeepAspectRatio);
    QRect target(QPoint(), size);
    target.moveCenter(rect().center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(target, m_image);
}
