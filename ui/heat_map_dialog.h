// The dialog that gives the colour key limits of its own.
#pragma once

class Fl_Window;

namespace morvane {

/// Builds the dialog, hidden.
Fl_Window* buildHeatMapDialog();

/// Shows it over the middle of the main window.
void showHeatMapDialog();

}  // namespace morvane
