// Windows that belong to the main window.
#pragma once

class Fl_Window;

namespace morvane {

/// Shows `window` where a press on the main window does not cover it; in front of all others when
/// it is shown already.
void showOwned(Fl_Window& window);

}  // namespace morvane
