// Pictures as JPEG files.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace morvane {

/// Rows from the top, each of `width` pixels of three bytes: red, green, blue.
struct RgbImage {
  int width = 0;
  int height = 0;
  std::vector<unsigned char> pixels;

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

/// Saves `image` under `path` (UTF-8) in the library's default quality. The file appears only when
/// it is complete. Empty on success, else the reason; JPEG knows no empty picture and none with a
/// side over 65500 pixels.
std::string saveJpeg(const RgbImage& image, const std::string& path);

}  // namespace morvane
