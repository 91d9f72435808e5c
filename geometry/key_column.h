// Where the numbers of the colour key stand: no window, no GL.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "geometry/screen_quad.h"
#include "geometry/text_width.h"
#include "surface/heat_map_scale.h"

namespace morvane {

/// The space that the texts of the view are laid out in: the view at its first size.
inline constexpr float kTextSpaceWidth = 1130.0F;
inline constexpr float kTextSpaceHeight = 775.0F;

/// A number of the key, top to bottom.
struct KeyNumber {
  std::string text;
  float x = 0.0F;  ///< where its baseline starts in the text space
  float y = 0.0F;
};

struct KeyColumn {
  std::array<KeyNumber, kKeyLabels> numbers;
  float scale = 1.0F;
};

/// The numbers between `max` and `min`, beside the key: right of it, a little smaller where the
/// room asks for it; left of it where they would be too small to read. `textWidth` tells units of
/// the text space, in which narrow windows make glyphs wider.
KeyColumn keyColumn(float max, float min, const TextWidth& textWidth);

/// The room that the key and its numbers take in a view of `width` × `height` pixels, in which
/// glyphs are `textHeight` units of the text space high at a scale of 1.
std::vector<ScreenQuad> roomOf(const KeyColumn& column, const TextWidth& textWidth,
                               float textHeight, int width, int height);

}  // namespace morvane
