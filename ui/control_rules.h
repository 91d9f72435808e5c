// The computations of the view controls, without a window: number texts and scale steps.
#pragma once

#include <string>
#include <string_view>

#include "base/number_text.h"

namespace morvane {

/// The unit after a height limit.
inline constexpr std::string_view kMicrometres = "µm";

/// The lower bound of the scale slider and of the minus button.
inline constexpr double kSmallestScale = 1e-10;

/// The slider value for `zScale`: itself, or 1 if it is infinite (flat surface).
double finiteScale(float zScale);

/// The text of the scale readout for a z-scale, e.g. "3x".
std::string readoutText(float zScale);

/// `text` without any micro sign and any "m".
std::string stripUnit(std::string_view text);

/// The z-scale after a press on plus (`direction` above 0) or minus. The step is 5 % of the
/// automatic scale `base`. Plus does nothing at or above `maximum`. Minus never goes to 0 or below.
float steppedScale(int direction, float base, float maximum, float current);

}  // namespace morvane
