// The width of texts, for layout code that has no font.
#pragma once

#include <functional>
#include <string_view>

namespace morvane {

/// The width of a text at a scale. Glyphs at a scale of 1 are 48 units high.
using TextWidth = std::function<float(std::string_view text, float scale)>;

}  // namespace morvane
