// The About window: version, agreement and contact.
#pragma once

class Fl_Window;

namespace morvane {

/// Creates the window, hidden.
Fl_Window* buildAboutWindow();

}  // namespace morvane
