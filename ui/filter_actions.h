// Filtering the surface shown.
#pragma once

namespace morvane {

/// Filters the measurement shown with the settings of the filter window. Without a type the raw
/// heights are shown.
void applyFilter();

/// Switches between filtered and raw heights and filters again.
void toggleFilter();

/// Shows the window of settings, the first time beside the surface.
void showFilterWindow();

}  // namespace morvane
