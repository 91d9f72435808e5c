// Numbers as texts: the one formatter.
#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// `value` in fixed-point notation with `decimals` decimals (at most 80), whatever the locale;
/// values that are not finite as the words the standard library has for them.
std::string fixedText(double value, int decimals);

/// The same for the eye: a number that rounds to zero has no sign.
std::string shownText(double value, int decimals);

/// `number`, a decimal number as text, without its sign if it reads as zero.
std::string unsignedZero(std::string number);

/// The longest leading part of `text` that reads as a decimal number; 0 when there is none,
/// infinite beyond the range of the type.
double leadingNumber(std::string_view text);
float leadingFloat(std::string_view text);

/// Whether `text` is such a number from end to end, blanks around it apart.
bool isNumber(std::string_view text);

}  // namespace morvane
