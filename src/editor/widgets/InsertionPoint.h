#pragma once

#include <QColor>
#include <QObject>
#include <QRectF>
#include <QTimer>

class QPainter;
class QPlainTextEdit;

// The editor's caret, drawn by the editor instead of the toolkit so that it can be a block
// or a tall bar in a colour of its own. Each blink repaints the whole visible area, so a
// widened caret leaves no trace behind.
class InsertionPoint : public QObject
{
    Q_OBJECT
public:
    explicit InsertionPoint(QPlainTextEdit *view);

    void setShape(int fontSize, bool block, bool tall);
    void setColor(const QColor &color) { m_color = color; }
    QColor color() const { return m_color; }
    // Where the caret is drawn, in viewport coordinates.
    QRectF rect() const;
    bool isShown() const { return m_on; }

    void paint(QPainter &painter) const;
    // Shows the caret at once and restarts the blinking (after a move or a key).
    void restartBlinking();
    void stopBlinking();

private:
    void blink();

    QPlainTextEdit *m_view;
    QTimer m_timer;
    QColor m_color = Qt::black;
    int m_fontSize = 12;
    bool m_block = false;
    bool m_tall = false;
    bool m_on = false;
};
