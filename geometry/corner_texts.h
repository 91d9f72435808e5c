// The two lines in the upper left corner of the view: no window, no GL.
#pragma once

#include <string>
#include <vector>

#include "geometry/screen_quad.h"
#include "geometry/text_width.h"

namespace morvane {

/// A text whose baseline starts at `kCornerLeft`, `y` of the text space.
struct CornerText {
  std::string text;
  float y = 0.0F;
  float scale = 1.0F;
  bool quiet = false;  ///< drawn a little paler
};

inline constexpr float kCornerLeft = 20.0F;

/// Places `name`, the file's, and below it `words`, which are made smaller if they are too long.
/// Empty texts have no place. With `onlyFitting` neither has a name that is too long, nor words
/// that would be too small to read. `textWidth` and `textHeight` are those of the key.
std::vector<CornerText> cornerTexts(const std::string& name, const std::string& words,
                                    const TextWidth& textWidth, float textHeight, bool onlyFitting);

/// The areas of such texts in a view of `width` × `height` pixels.
std::vector<ScreenQuad> cornerArea(const std::vector<CornerText>& texts, const TextWidth& textWidth,
                                   float textHeight, int width, int height);

}  // namespace morvane
