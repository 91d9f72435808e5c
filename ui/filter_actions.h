// Filtering the surface on show.
#pragma once

namespace morvane {

/// Filters the measurement on show as the filter window says; without a type the raw heights are
/// shown.
void applyFilter();

/// Switches between filtered and raw heights and filters anew.
void toggleFilter();

/// Shows the window of settings, the first time beside the surface.
void showFilterWindow();

}  // namespace morvane
