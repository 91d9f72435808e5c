// Windows bitmaps encoded byte by byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace morvane {

/// A picture of `width` × `height` pixels, bottom row first: one grey byte a pixel, or three in the
/// order blue, green, red.
struct BitmapContent {
  std::int32_t width = 0;
  std::int32_t height = 0;
  int bitsPerPixel = 8;  ///< 8 with a grey palette, or 24
  std::vector<std::uint8_t> pixels{};
};

/// The bytes of the file, rows padded to four bytes. Throws std::invalid_argument when there are
/// not as many pixels as the size says.
std::vector<std::byte> encodeBitmap(const BitmapContent& content);

}  // namespace morvane
