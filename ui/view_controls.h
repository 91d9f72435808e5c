// The callbacks behind the control column: heat map, scale, limits, reset, profile.
#pragma once

class Fl_Widget;

namespace morvane {

/// All callbacks ignore the widget; the number selects the action.

/// Switches between heat map and bitmap. Without a bitmap only the icon and the setting change.
void toggleHeatMap(Fl_Widget* widget, long action);

/// Changes the z-scale: 0 uses the slider's value, 1 and −1 are one step up and down.
void changeScale(Fl_Widget* widget, long action);

inline constexpr long kLimitsTyped = 1;
inline constexpr long kLimitsButton = 4;
/// Uses the typed limits, or switches between automatic and typed limits.
void applyLimits(Fl_Widget* widget, long action);

/// Switches to automatic limits.
void useAutomaticLimits();

/// Bounds the colours by the heights from 1 % to 99 %, or no more.
void togglePercentiles();

/// Resets camera, scale and limits to those of the measurement.
void resetView(Fl_Widget* widget, long action);

inline constexpr long kProfileOn = 1;
inline constexpr long kProfileSwapPins = 0;
inline constexpr long kProfileOff = -1;
/// Switches the profile tool on or off, or swaps its pins.
void setProfileMode(Fl_Widget* widget, long action);

/// Updates the controls: the scale and, while they are automatic, the limits.
void showMeasured();

/// Chooses bitmap number `index` of the measurement. Without the heat map it is shown at once.
void selectBitmap(long index);

}  // namespace morvane
