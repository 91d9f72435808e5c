// Where the 3D view, the profile window and the results column stand in the main window.
#pragma once

namespace morvane {

/// Places them for the main window's present size and what of them is shown.
void layoutViews();

/// Shows the results column, for every measurement, or hides it.
void toggleResultsColumn();

/// The details button: shows the results column beside the view, or gives the view its room back.
void toggleDetails();

}  // namespace morvane
