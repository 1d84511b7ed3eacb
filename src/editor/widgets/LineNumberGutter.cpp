#include "LineNumberGutter.h"

#include "EnhancedTextView.h"

#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>

LineNumberGutter::LineNumberGutter(EnhancedTextView *view)
    : QWidget(view)
    , m_view(view)
{
    //% "Line numbers"
    setAccessibleName(qtTrId("EDITOR_LINE_GUTTER"));
    //% "The number of each paragraph of the entry"
    setToolTip(qtTrId("EDITOR_LINE_GUTTER_TIP"));
}

void LineNumberGutter::setLook(const Look &look)
{
    m_look = look;
    update();
}

int LineNumberGutter::preferredWidth() const
{
    int digits = 1;
    for (int n = std::max(1, m_view->blockCount()); n >= 10; n /= 10)
        ++digits;
    digits = std::max(digits, 3);
    const QFontMetrics metrics(m_look.font);
    const int padding = m_look.thick ? 16 : 6;
    return padding * 2 + metrics.horizontalAdvance(QLatin1Char('9')) * digits;
}

void LineNumberGutter::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), m_look.background);
    painter.setFont(m_look.font);
    painter.setPen(m_look.numbers);
    const int padding = m_look.thick ? 16 : 6;
    const QPointF offset = m_view->visibleContentOffset();
    QTextBlock block = m_view->firstVisibleTextBlock();
    const int bottom = event->rect().bottom();
    while (block.isValid()) {
        const QRectF geometry = m_view->textBlockGeometry(block).translated(offset);
        if (geometry.top() > bottom)
            break;
        if (block.isVisible() && block.layout() && block.layout()->lineCount() > 0) {
            const QTextLine first = block.layout()->lineAt(0);
            const QRectF line(0, geometry.top() + first.y(), width() - padding, first.height());
            painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter,
                             QString::number(block.blockNumber() + 1));
        }
        block = block.next();
    }
}
