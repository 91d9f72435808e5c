// The window in which the direction of the light is set.
#pragma once

class Fl_Window;

namespace morvane {

/// Creates the window, hidden.
Fl_Window* buildLightWindow();

}  // namespace morvane
