#include "base/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <system_error>

namespace morvane {

std::string fixedText(double value, int decimals) {
  // Room for the 309 digits of the largest double, sign, point and decimals.
  std::array<char, 400> text{};
  const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value,
                                          std::chars_format::fixed, decimals);
  return error == std::errc{} ? std::string(text.data(), end) : std::string();
}

std::string shownText(double value, int decimals) {
  return unsignedZero(fixedText(value, decimals));
}

std::string settingText(float value) {
  constexpr int kMaxDecimals = 6;
  int decimals = 2;
  std::string text = shownText(value, decimals);
  while (leadingFloat(text) != value && decimals < kMaxDecimals) {
    text = shownText(value, ++decimals);
  }
  return text;
}

namespace {

/// `how` are the further arguments of `std::to_chars`.
template <typename Number, typename... How>
void append(std::string& text, Number value, How... how) {
  std::array<char, 32> digits;
  const auto [end, error] =
      std::to_chars(digits.data(), digits.data() + digits.size(), value, how...);
  text.append(digits.data(), end);
}

}  // namespace

void appendExact(std::string& text, double value) { append(text, value); }
void appendExact(std::string& text, float value) { append(text, value); }
void appendRounded(std::string& text, double value) {
  append(text, value, std::chars_format::general, 15);
}

std::string unsignedZero(std::string number) {
  if (number.starts_with('-') && number.find_first_not_of("0.e+", 1) == std::string::npos) {
    number.erase(0, 1);
  }
  return number;
}

namespace {

struct Leading {
  double number = 0.0;
  std::string_view rest;  ///< what follows it; the whole text when there is none
};

Leading parsed(std::string_view text) {
  const std::string_view whole = text;
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  const std::size_t sign = text.starts_with('+') || text.starts_with('-') ? 1 : 0;
  // "nan" and "inf" do not count as numbers.
  if (text.find_first_of("0123456789.", sign) != sign) return {0.0, whole};
  if (text.starts_with('+')) text.remove_prefix(1);
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc::invalid_argument) return {0.0, whole};
  const auto length = static_cast<std::size_t>(end - text.data());
  if (error == std::errc::result_out_of_range) {
    value = std::strtod(std::string(text.substr(0, length)).c_str(), nullptr);
  }
  return {value, text.substr(length)};
}

}  // namespace

double leadingNumber(std::string_view text) { return parsed(text).number; }

bool isNumber(std::string_view text) {
  const std::string_view rest = parsed(text).rest;
  return rest.size() < text.size() && rest.find_first_not_of(" \t") == std::string_view::npos;
}

float leadingFloat(std::string_view text) {
  const double number = leadingNumber(text);
  if (std::abs(number) <= double{std::numeric_limits<float>::max()}) {
    return static_cast<float>(number);
  }
  return std::copysign(HUGE_VALF, static_cast<float>(std::copysign(1.0, number)));
}

}  // namespace morvane
