#pragma once

#include <QColor>
#include <QPixmap>
#include <QWidget>

class UserDefaults;

// What surrounds the text in full screen: the chosen colour, or the chosen image scaled to
// the screen.
class FullScreenBackdrop : public QWidget
{
    Q_OBJECT
public:
    explicit FullScreenBackdrop(QWidget *parent = nullptr, Qt::WindowFlags flags = {});

    // Reads the background settings; the image is scaled to screenSize.
    void setBackground(const UserDefaults &defaults, QSize screenSize);
    QColor color() const { return m_color; }
    bool hasImage() const { return !m_image.isNull(); }

Q_SIGNALS:
    void resized();
    void escapePressed();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QColor m_color = Qt::black;
    QPixmap m_image;
};
