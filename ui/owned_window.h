// Windows that are owned by the main window.
#pragma once

class Fl_Window;

namespace morvane {

/// Shows `window` so that it stays in front of the main window. If it is shown already it is
/// raised.
void showOwned(Fl_Window& window);

}  // namespace morvane
