// The values of options: texts to numbers and sizes.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "export/rgb_image.h"

namespace morvane {

/// The shortest and the longest side that a picture may have, pixels.
inline constexpr int kShortestSide = 16;
inline constexpr int kLongestSide = 32768;

/// The parts of `text` between its commas, as they were typed.
std::vector<std::string> partsOf(std::string_view text);

/// The numbers of the parts of `text`: `count` decimal numbers within single precision, without
/// blanks. Nothing for anything else.
std::optional<std::vector<double>> numbersOf(std::string_view text, std::size_t count);

/// The size of a text like "1600x1200". Nothing if it is none or a side is too short or too long.
std::optional<PictureSize> sizeOf(std::string_view text);

}  // namespace morvane
