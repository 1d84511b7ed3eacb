#include "PanelPlacement.h"

#include <algorithm>

namespace PanelPlacement {

QPoint topLeft(const QRect &iconGeometry, const QPoint &pointer, const QSize &panel,
               const QRect &available)
{
    const QRect anchor = iconGeometry.isValid() ? iconGeometry : QRect(pointer, QSize(1, 1));
    int x = anchor.left() + anchor.width() / 2 - panel.width() / 2;
    int y = anchor.bottom() + 1;
    // A tray in a bottom panel: the panel opens upwards instead.
    if (y + panel.height() > available.bottom() + 1 &&
        anchor.top() - panel.height() >= available.top())
        y = anchor.top() - panel.height();
    x = std::clamp(x, available.left(),
                   std::max(available.left(), available.right() + 1 - panel.width()));
    y = std::clamp(y, available.top(),
                   std::max(available.top(), available.bottom() + 1 - panel.height()));
    return {x, y};
}

} // namespace PanelPlacement
