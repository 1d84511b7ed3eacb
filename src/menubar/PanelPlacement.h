#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

// Where the capture panel opens: hanging below the tray icon, centred on it, or above it
// when the tray sits at the bottom of the screen; near the pointer when the tray does not
// say where its icon is. Always entirely on the screen's available area.
namespace PanelPlacement {
QPoint topLeft(const QRect &iconGeometry, const QPoint &pointer, const QSize &panel,
               const QRect &available);
} // namespace PanelPlacement
