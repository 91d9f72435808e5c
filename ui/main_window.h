// The main window and everything in it.
#pragma once

namespace morvane {

/// Creates all widgets of the program, hidden, and stores those that callbacks need in `AppState`.
/// Call once, after the executable's folder is set.
void buildMainWindow();

}  // namespace morvane
