// The main window and everything in it.
#pragma once

namespace morvane {

/// Creates every widget of the program, hidden, and keeps those that callbacks need in `AppState`.
/// Called once at start-up, after the executable's folder is known.
void buildMainWindow();

}  // namespace morvane
