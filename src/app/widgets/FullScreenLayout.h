#pragma once

#include <QRectF>
#include <QSizeF>

// Where the text goes in full screen, for a screen of the given size and the width and
// height settings (percent).
namespace FullScreenLayout {
// The main window's own full screen: the percentages apply to the screen less fixed
// margins, and the text sits two points right of centre, as it always has.
inline QRectF nativeTextRect(QSizeF screen, int widthPercent, int heightPercent)
{
    const qreal h = heightPercent * (screen.height() - 66) / 100.0;
    const qreal y = (screen.height() - 66 - h) / 2;
    const qreal w = widthPercent * (screen.width() - 358) / 100.0;
    const qreal x = (screen.width() - 354 - w) / 2;
    return QRectF(x, y, w, h);
}

// The distraction-free window: plain percentages of the whole screen, centred.
inline QRectF ownWindowTextRect(QSizeF screen, int widthPercent, int heightPercent)
{
    const qreal h = heightPercent * screen.height() / 100.0;
    const qreal w = widthPercent * screen.width() / 100.0;
    return QRectF((screen.width() - w) / 2, (screen.height() - h) / 2, w, h);
}
} // namespace FullScreenLayout
