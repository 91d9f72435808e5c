// Redraws the windows before work that takes a while.
#pragma once

namespace morvane {

/// Draws all damaged windows and returns when they are on the screen. No keys or mouse presses are
/// handled meanwhile.
void drawPending();

/// The same, after a window over the main window was closed: waits until it is off the screen, at
/// most 0.1 s.
void drawUncovered();

}  // namespace morvane
