// What the view controls compute, without a window: number texts and scale steps.
#pragma once

#include <string>
#include <string_view>

#include "base/number_text.h"

namespace morvane {

/// The unit behind a height limit.
inline constexpr std::string_view kMicrometres = "µm";

/// A place for `zScale` on the slider: itself, or 1 where a flat surface has an infinite one.
double finiteScale(float zScale);

/// What the scale readout shows for a z-scale, e.g. "3x".
std::string readoutText(float zScale);

/// `text` without any micro sign and any "m".
std::string stripUnit(std::string_view text);

/// The z-scale after one press of plus (`direction` above 0) or minus: a step of 5 % of the
/// measurement's own scale `base`, never from at or above `maximum` and never to 0 or below.
float steppedScale(int direction, float base, float maximum, float current);

}  // namespace morvane
