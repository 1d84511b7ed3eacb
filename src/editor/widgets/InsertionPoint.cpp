#include "InsertionPoint.h"

#include "editor/EditorAppearance.h"

#include <QApplication>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStyle>

InsertionPoint::InsertionPoint(QPlainTextEdit *view)
    : QObject(view)
    , m_view(view)
{
    connect(&m_timer, &QTimer::timeout, this, &InsertionPoint::blink);
}

void InsertionPoint::setShape(int fontSize, bool block, bool tall)
{
    m_fontSize = fontSize;
    m_block = block;
    m_tall = tall;
    m_view->viewport()->update();
}

QRectF InsertionPoint::rect() const
{
    QRectF caret = m_view->cursorRect();
    caret.setWidth(std::max(1, m_view->style()->pixelMetric(QStyle::PM_TextCursorWidth)));
    return EditorAppearance::insertionPointRect(caret, m_fontSize, m_block, m_tall);
}

void InsertionPoint::paint(QPainter &painter) const
{
    if (!m_on || !m_view->hasFocus() || m_view->isReadOnly())
        return;
    painter.fillRect(rect(), m_color);
}

void InsertionPoint::restartBlinking()
{
    m_on = true;
    const int flash = QApplication::cursorFlashTime();
    if (flash > 0)
        m_timer.start(flash / 2);
    else
        m_timer.stop();
    m_view->viewport()->update();
}

void InsertionPoint::stopBlinking()
{
    m_timer.stop();
    m_on = false;
    m_view->viewport()->update();
}

void InsertionPoint::blink()
{
    m_on = !m_on;
    m_view->viewport()->update();
}
