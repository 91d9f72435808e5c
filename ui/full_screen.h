// Full screen, as far as the system fills it without making the window anew.
#pragma once

namespace morvane {

/// Whether the window manager itself lets a window fill the screen. Where it does not, the toolkit
/// puts another window in its place, and the GL context goes with the old one.
bool canFillScreen();

}  // namespace morvane
