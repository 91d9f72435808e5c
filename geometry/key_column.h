// The places of the numbers of the colour key: no window, no GL.
#pragma once

#include <string>
#include <vector>

#include "geometry/screen_quad.h"
#include "geometry/text_width.h"
#include "surface/heat_map_scale.h"

namespace morvane {

/// The space in which the texts of the view are laid out: the initial size of the view.
inline constexpr float kTextSpaceWidth = 1130.0F;
inline constexpr float kTextSpaceHeight = 775.0F;

/// A number of the key, top to bottom.
struct KeyNumber {
  std::string text;
  float x = 0.0F;  ///< where its baseline starts in the text space
  float y = 0.0F;
};

struct KeyColumn {
  std::vector<KeyNumber> numbers;
  float scale = 1.0F;
};

/// The numbers of `scale` beside the key. They are to its right, a little smaller if there
/// is little room. If they would be too small to read they are to its left. `textWidth` returns
/// units of the text space, in which glyphs are wider in narrow windows.
KeyColumn keyColumn(const HeatMapScale& scale, const TextWidth& textWidth);

/// The area of a text of glyphs that are `em` high. Its baseline starts at `start`; that, `length`
/// and `em` are in units of the text space, the area is in pixels of a view of `width` × `height`.
ScreenQuad textQuad(const glm::vec2& start, float length, float em, int width, int height);

/// The area of the key and its numbers in a view of `width` × `height` pixels. Glyphs at a scale of
/// 1 are `textHeight` units of the text space high.
std::vector<ScreenQuad> keyArea(const KeyColumn& column, const TextWidth& textWidth,
                                float textHeight, int width, int height);

/// Whether the numbers of a key with this area, that of `keyArea`, are apart and within the right
/// third of a picture of `width` × `height` pixels.
bool keyFits(const std::vector<ScreenQuad>& area, int width, int height);

}  // namespace morvane
