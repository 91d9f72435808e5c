// A rectangle in pixels.
#pragma once

namespace morvane {

/// Measured from the top left corner of what holds it.
struct PixelArea {
  int x = 0;
  int y = 0;
  int w = 0;
  int h = 0;
};

}  // namespace morvane
