// How wide a text is, for those that lay texts out without a font.
#pragma once

#include <functional>
#include <string_view>

namespace morvane {

/// How wide a text is at a scale, in the units that glyphs are 48 high in at a scale of 1.
using TextWidth = std::function<float(std::string_view text, float scale)>;

}  // namespace morvane
