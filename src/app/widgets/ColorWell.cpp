#include "ColorWell.h"

#include <QColorDialog>
#include <QPainter>
#include <QPixmap>

ColorWell::ColorWell(QWidget *parent)
    : QPushButton(parent)
{
    setIconSize(QSize(36, 14));
    connect(this, &QPushButton::clicked, this, &ColorWell::chooseColor);
}

void ColorWell::setColor(const QColor &color)
{
    m_color = color;
    QPixmap swatch(iconSize());
    swatch.fill(Qt::transparent);
    QPainter p(&swatch);
    p.fillRect(swatch.rect(), color);
    p.setPen(palette().color(QPalette::Mid));
    p.drawRect(swatch.rect().adjusted(0, 0, -1, -1));
    p.end();
    setIcon(QIcon(swatch));
}

void ColorWell::chooseColor()
{
    auto *dialog = new QColorDialog(m_color, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOption(QColorDialog::ShowAlphaChannel);
    dialog->setWindowTitle(accessibleName());
    connect(dialog, &QColorDialog::colorSelected, this, [this](const QColor &chosen) {
        setColor(chosen);
        Q_EMIT colorChosen(chosen);
    });
    dialog->open();
}
