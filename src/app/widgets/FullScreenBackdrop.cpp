#include "FullScreenBackdrop.h"

#include "core/AppPaths.h"
#include "core/UserDefaults.h"

#include <QDir>
#include <QKeyEvent>
#include <QPainter>

FullScreenBackdrop::FullScreenBackdrop(QWidget *parent, Qt::WindowFlags flags)
    : QWidget(parent, flags)
{
    //% "Full-screen background"
    setAccessibleName(qtTrId("FULLSCREEN_BACKGROUND"));
    //% "Press Escape to leave"
    setToolTip(qtTrId("FULLSCREEN_BACKGROUND_TIP"));
}

void FullScreenBackdrop::setBackground(const UserDefaults &defaults, QSize screenSize)
{
    m_color = defaults.value(Settings::FullscreenBackgroundColor);
    m_image = QPixmap();
    if (defaults.value(Settings::FullscreenUseBackgroundImage)) {
        const QString path = QDir::cleanPath(
            AppPaths::expandTilde(defaults.value(Settings::FullscreenBackgroundImage)));
        const QPixmap image(path);
        if (!image.isNull())
            m_image = image.scaled(screenSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    update();
}

void FullScreenBackdrop::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (m_image.isNull())
        painter.fillRect(rect(), m_color);
    else
        painter.drawTiledPixmap(rect(), m_image);
}

void FullScreenBackdrop::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    Q_EMIT resized();
}

void FullScreenBackdrop::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        Q_EMIT escapePressed();
        event->accept();
        return;
    }
    QWidget::keyPressEvent(event);
}
