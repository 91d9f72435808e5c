// Numbers as texts: the one formatter.
#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// `value` in fixed-point notation with `decimals` decimals (at most 80), independent of the
/// locale. NaN and infinity are written as the standard library does.
std::string fixedText(double value, int decimals);

/// The same for display: a number that rounds to zero has no sign.
std::string shownText(double value, int decimals);

/// A number that an operator set: with two decimals, or as many more as it needs, up to six.
std::string settingText(float value);

/// Appends the shortest text that reads back to exactly `value`, independent of the locale: "0.1",
/// "1e-05". NaN and infinity are written as the standard library does.
void appendExact(std::string& text, double value);
void appendExact(std::string& text, float value);

/// Appends `value` with 15 digits, without zeros at its end. So a product such as 3 × 0.1 has no
/// digits of rounding.
void appendRounded(std::string& text, double value);

/// `number`, a decimal number as text, without its sign if it reads as zero.
std::string unsignedZero(std::string number);

/// The value of the longest prefix of `text` that is a decimal number. 0 when there is none,
/// infinity beyond the range of the type.
double leadingNumber(std::string_view text);
float leadingFloat(std::string_view text);

/// Whether all of `text` is such a number; blanks around it are ignored.
bool isNumber(std::string_view text);

}  // namespace morvane
