#include "resfile/number_text.h"

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

double leadingNumber(std::string_view text) {
  const auto begin = text.find_first_not_of(" \t");
  if (begin == std::string_view::npos) return 0.0;
  text.remove_prefix(begin);
  const std::size_t sign = text.starts_with('+') || text.starts_with('-') ? 1 : 0;
  // Words such as "nan" and "inf" are no decimal numbers.
  if (text.find_first_of("0123456789.", sign) != sign) return 0.0;
  if (text.starts_with('+')) text.remove_prefix(1);
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc::result_out_of_range) return value;
  const std::string_view number(text.data(), static_cast<std::size_t>(end - text.data()));
  return std::strtod(std::string(number).c_str(), nullptr);
}

float leadingFloat(std::string_view text) {
  const double number = leadingNumber(text);
  if (std::abs(number) <= double{std::numeric_limits<float>::max()}) {
    return static_cast<float>(number);
  }
  return std::copysign(HUGE_VALF, static_cast<float>(std::copysign(1.0, number)));
}

}  // namespace morvane
