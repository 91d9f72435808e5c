// The window that says what the program is and on what terms it is used.
#pragma once

class Fl_Window;

namespace morvane {

/// Builds the window, hidden.
Fl_Window* buildAboutWindow();

}  // namespace morvane
