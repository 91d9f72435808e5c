// The callbacks behind the control column: heat map, scale, limits, reset, profile.
#pragma once

class Fl_Widget;

namespace morvane {

/// Each takes the widget, which none looks at, and the number that selects its action.

/// Switches between heat map and bitmap; without a bitmap only icon and flags change.
void toggleHeatMap(Fl_Widget* widget, long action);

/// Changes the z-scale: 0 takes the slider's value, 1 and −1 are one step up and down.
void changeScale(Fl_Widget* widget, long action);

inline constexpr long kLimitsTyped = 1;
inline constexpr long kLimitsButton = 4;
/// Takes the typed limits, or alternates between automatic and user limits.
void applyLimits(Fl_Widget* widget, long action);

/// Puts the limits back to those of the surface, as the button does.
void useAutomaticLimits();

/// Puts camera, scale and limits back to what suits the measurement.
void resetView(Fl_Widget* widget, long action);

inline constexpr long kProfileOn = 1;
inline constexpr long kProfileSwapPins = 0;
inline constexpr long kProfileOff = -1;
/// Switches the profile tool on or off, or swaps its pins.
void setProfileMode(Fl_Widget* widget, long action);

/// Makes the controls show the scale and, while they are automatic, the limits of the view.
void showMeasured();

/// Chooses bitmap number `index` of the measurement; shown at once where no heat map is.
void selectBitmap(long index);

}  // namespace morvane
