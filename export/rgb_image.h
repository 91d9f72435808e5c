// Pictures in memory.
#pragma once

#include <cstddef>
#include <vector>

namespace morvane {

using Bytes = std::vector<unsigned char>;

/// Pixels.
struct PictureSize {
  int width = 1125;
  int height = 775;
};

/// Rows from the top, each of `width` pixels of three bytes: red, green, blue.
struct RgbImage {
  int width = 0;
  int height = 0;
  Bytes pixels;

  RgbImage() = default;
  /// All black.
  RgbImage(int w, int h)
      : width(w),
        height(h),
        pixels(3 * static_cast<std::size_t>(w) * static_cast<std::size_t>(h)) {}

  [[nodiscard]] const unsigned char* row(std::size_t y) const {
    return pixels.data() + stride() * y;
  }
  [[nodiscard]] unsigned char* row(std::size_t y) { return pixels.data() + stride() * y; }

 private:
  [[nodiscard]] std::size_t stride() const { return 3 * static_cast<std::size_t>(width); }
};

/// Size of the bitmap file header in bytes. A device-independent bitmap (DIB) follows it.
inline constexpr std::size_t kBitmapFileHeader = 14;
/// Offset of the pixels in a bitmap file.
inline constexpr std::size_t kBitmapHeaders = 54;

/// The size of a picture's bitmap file in bytes.
std::size_t bitmapFileBytes(const RgbImage& image);

/// The bitmap file of a picture: 24 bits per pixel in the order blue, green, red; bottom row first;
/// rows padded to 4 bytes.
Bytes bitmapFile(const RgbImage& image);

}  // namespace morvane
