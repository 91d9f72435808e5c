// Numbers as texts: the one formatter.
#pragma once

#include <string>

namespace morvane {

/// `value` in fixed-point notation with `decimals` decimals (at most 80), whatever the locale;
/// values that are not finite as the words the standard library has for them.
std::string fixedText(double value, int decimals);

}  // namespace morvane
