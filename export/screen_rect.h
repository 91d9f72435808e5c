// A rectangle of the screen.
#pragma once

#include <cstdint>

#include "export/rgb_image.h"

namespace morvane {

/// A point in pixels of the screen, from its top left corner.
struct ScreenPoint {
  std::int32_t x = 0;
  std::int32_t y = 0;
};

/// `bottomRight` is the first point outside.
struct ScreenRect {
  ScreenPoint topLeft;
  ScreenPoint bottomRight;
};

/// A picture and the screen position of its top left pixel.
struct ScreenPart {
  ScreenPoint topLeft;
  RgbImage image;
};

}  // namespace morvane
