// Bringing the windows up to date before work that takes a while.
#pragma once

namespace morvane {

/// Draws everything that is waiting to be drawn, and returns when it is on the screen. No key and
/// no press is acted on meanwhile.
void drawPending();

/// The same, for use when a window over the main one has just gone: waits until the system has
/// taken it from the screen, a tenth of a second at most.
void drawUncovered();

}  // namespace morvane
