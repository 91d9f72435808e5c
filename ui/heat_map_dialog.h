// The dialog for the limits of the colour key.
#pragma once

class Fl_Window;

namespace morvane {

/// Creates the dialog, hidden.
Fl_Window* buildHeatMapDialog();

/// Shows it. Kept: its lower right corner is at the middle of the main window.
void showHeatMapDialog();

}  // namespace morvane
