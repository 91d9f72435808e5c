// Encodes Windows bitmaps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace morvane {

/// A picture of `width` × `height` pixels, bottom row first: one grey byte per pixel, or blue,
/// green, red.
struct BitmapContent {
  std::int32_t width = 0;
  std::int32_t height = 0;
  int bitsPerPixel = 8;  ///< 8 with a grey palette, or 24
  std::vector<std::uint8_t> pixels{};
};

/// The bytes of the file, with rows padded to four bytes. Throws std::invalid_argument when the
/// number of pixels does not match the size.
std::vector<std::byte> encodeBitmap(const BitmapContent& content);

}  // namespace morvane
