#include "batch/option_values.h"

#include <charconv>
#include <cmath>

#include "base/number_text.h"

namespace morvane {

std::vector<std::string> partsOf(std::string_view text) {
  std::vector<std::string> parts;
  std::size_t comma = 0;
  do {
    comma = text.find(',');
    parts.emplace_back(text.substr(0, comma));
    text.remove_prefix(comma == std::string_view::npos ? text.size() : comma + 1);
  } while (comma != std::string_view::npos);
  return parts;
}

std::optional<std::vector<double>> numbersOf(std::string_view text, std::size_t count) {
  std::vector<double> numbers;
  for (const std::string& part : partsOf(text)) {
    const bool usable = isNumber(part) && part.find_first_of(" \t") == std::string::npos &&
                        std::isfinite(leadingFloat(part));
    if (!usable) return {};
    numbers.push_back(leadingNumber(part));
  }
  if (numbers.size() != count) return {};
  return numbers;
}

std::optional<PictureSize> sizeOf(std::string_view text) {
  const std::size_t cross = text.find('x');
  if (cross == std::string_view::npos) return {};
  const auto take = [](std::string_view digits, int& side) {
    const char* end = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), end, side);
    return error == std::errc() && rest == end && side >= kShortestSide && side <= kLongestSide;
  };
  PictureSize size;
  const bool read =
      take(text.substr(0, cross), size.width) && take(text.substr(cross + 1), size.height);
  return read ? std::optional(size) : std::nullopt;
}

}  // namespace morvane
