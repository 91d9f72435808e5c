// Lays out the 3D view, the profile window and the results column in the main window.
#pragma once

namespace morvane {

/// Places them for the current size of the main window and for which of them are shown.
void layoutViews();

/// Shows the results column, for every measurement, or hides it.
void toggleResultsColumn();

/// The details button: shows or hides the results column beside the view.
void toggleDetails();

}  // namespace morvane
