#pragma once

#include <QImage>
#include <QWidget>

// Shows one picture as large as fits, never enlarged past its own size, centred.
class ScaledImageView : public QWidget
{
    Q_OBJECT
public:
    explicit ScaledImageView(QWidget *parent = nullptr);

    // Decodes at most bound by bound, so a huge photo is never held whole. False when the
    // file is no picture the readers know.
    bool load(const QString &path, const QSize &bound);
    QImage image() const { return m_image; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QImage m_image;
};
