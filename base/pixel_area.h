// A rectangle in pixels.
#pragma once

namespace morvane {

/// Relative to the top left corner of its container.
struct PixelArea {
  int x = 0;
  int y = 0;
  int w = 0;
  int h = 0;
  friend bool operator==(const PixelArea&, const PixelArea&) = default;
};

}  // namespace morvane
