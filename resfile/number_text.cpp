#include "resfile/number_text.h"

#include <array>
#include <charconv>
#include <system_error>

namespace morvane {

std::string fixedText(double value, int decimals) {
  // Room for the 309 digits of the largest double, sign, point and decimals.
  std::array<char, 400> text{};
  const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value,
                                          std::chars_format::fixed, decimals);
  return error == std::errc{} ? std::string(text.data(), end) : std::string();
}

}  // namespace morvane
