// Pictures in memory.
#pragma once

#include <cstddef>
#include <vector>

namespace morvane {

using Bytes = std::vector<unsigned char>;

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

/// Bytes of a bitmap file before what Windows calls a device-independent bitmap.
inline constexpr std::size_t kBitmapFileHeader = 14;
/// Bytes of a bitmap file before its pixels.
inline constexpr std::size_t kBitmapHeaders = 54;

/// Bytes of a picture's bitmap file.
std::size_t bitmapFileBytes(const RgbImage& image);

/// The bitmap file of a picture, in 24 bits: rows from the bottom, blue first, filled up to whole
/// 4 bytes.
Bytes bitmapFile(const RgbImage& image);

}  // namespace morvane
