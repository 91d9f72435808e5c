// Filtering the surface shown.
#pragma once

namespace morvane {

/// Filters the measurement shown with the settings of the filter window. Without a type the raw
/// heights are shown.
void filterShown();

/// The same when the operator asks for it. A line names it while a large surface is filtered.
void applyFilter();

/// Switches between filtered and raw heights and filters again.
void toggleFilter();

/// Shows the window of settings, the first time beside the surface.
void showFilterWindow();

}  // namespace morvane
