// Numbers as texts: the one formatter.
#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// `value` in fixed-point notation with `decimals` decimals (at most 80), whatever the locale;
/// values that are not finite as the words the standard library has for them.
std::string fixedText(double value, int decimals);

/// The longest leading part of `text` that reads as a decimal number; 0 when there is none,
/// infinite beyond the range of the type.
double leadingNumber(std::string_view text);
float leadingFloat(std::string_view text);

/// Whether `text` is such a number from end to end, blanks around it apart.
bool isNumber(std::string_view text);

}  // namespace morvane
