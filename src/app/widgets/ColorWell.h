#pragma once

#include <QColor>
#include <QPushButton>

// A button showing a colour; clicking it opens the colour chooser, and a chosen colour is
// announced by colorChosen.
class ColorWell : public QPushButton
{
    Q_OBJECT
public:
    explicit ColorWell(QWidget *parent = nullptr);

    QColor color() const { return m_color; }
    void setColor(const QColor &color);
    void chooseColor();

Q_SIGNALS:
    void colorChosen(const QColor &color);

private:
    QColor m_color;
};
