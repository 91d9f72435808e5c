// Where the 3D view, the profile window and the results column stand in the main window.
#pragma once

namespace morvane {

inline constexpr int kMenuHeight = 25;
inline constexpr int kControlsWidth = 150;
inline constexpr int kResultsWidth = 220;
inline constexpr int kProfileHeight = 250;

/// Places the three for the main window's present size and what of them is shown.
void layoutViews();

/// Shows the results column, for every measurement, or hides it.
void toggleResultsColumn();

/// The details button: shows the results column beside the view, or gives the view its room back.
void toggleDetails();

}  // namespace morvane
