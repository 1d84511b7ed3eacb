#pragma once

// Wayland desktops give programs system-wide keys only through the desktop portal's
// GlobalShortcuts interface; whether the running desktop offers it is asked at run time.
namespace PortalGlobalShortcuts {
// True when the session bus has a desktop portal with the GlobalShortcuts interface.
bool isOffered();
// True when the application runs as a Wayland client.
bool isWaylandSession();
} // namespace PortalGlobalShortcuts
