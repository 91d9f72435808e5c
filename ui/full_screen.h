// Full screen, if the system supports it without recreating the window.
#pragma once

namespace morvane {

/// Whether the window manager supports full screen. If it does not, FLTK replaces the window, and
/// the GL context is lost with the old one.
bool canFillScreen();

}  // namespace morvane
