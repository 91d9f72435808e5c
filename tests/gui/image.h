// A picture of the screen, and the points, areas and colours in it.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "base/pixel_area.h"

namespace morvane::gui {

struct Point {
  int x = 0, y = 0;
};
using Area = PixelArea;
constexpr Point middleOf(const Area& area) { return {area.x + area.w / 2, area.y + area.h / 2}; }

/// A colour as the screen shows it, 0 to 255.
struct Rgb {
  int r = 0, g = 0, b = 0;
  friend bool operator==(const Rgb&, const Rgb&) = default;
};
inline constexpr Rgb kBlack{0, 0, 0};

std::ostream& operator<<(std::ostream& out, const Rgb& colour);

/// The largest difference of a channel.
int difference(const Rgb& a, const Rgb& b);

/// Spread between the strongest and the weakest channel: 0 for greys.
int chroma(const Rgb& colour);

/// The view's background, linear (0.65, 0.86, 1).
inline bool isSky(const Rgb& colour) { return difference(colour, {211, 238, 255}) <= 1; }

class Image {
 public:
  Image() = default;
  /// `pixels` holds width × height values 0xRRGGBB in row order.
  Image(int width, int height, std::vector<std::uint32_t> pixels);

  [[nodiscard]] int width() const { return width_; }
  [[nodiscard]] int height() const { return height_; }
  /// Throws std::out_of_range outside the picture, and so does `part`.
  [[nodiscard]] Rgb at(Point point) const;
  [[nodiscard]] Image part(const Area& area) const;

  /// How many pixels fulfil `predicate(Rgb)`.
  template <class Predicate>
  [[nodiscard]] int count(Predicate predicate) const {
    int found = 0;
    for (const std::uint32_t pixel : pixels_) found += predicate(decode(pixel)) ? 1 : 0;
    return found;
  }

  /// The middle of the pixels that fulfil `predicate(Rgb)`; (−1, −1) when there is none.
  template <class Predicate>
  [[nodiscard]] Point centreOf(Predicate predicate) const {
    long x = 0;
    long y = 0;
    long found = 0;
    for (int row = 0; row < height_; ++row) {
      for (int column = 0; column < width_; ++column) {
        if (!predicate(at({column, row}))) continue;
        x += column;
        y += row;
        ++found;
      }
    }
    if (found == 0) return {-1, -1};
    return {static_cast<int>(x / found), static_cast<int>(y / found)};
  }

  void savePng(const std::string& path) const;
  /// The picture in the bytes of a PPM file with 8 bits a channel.
  static Image ofPpm(const std::string& bytes);

  friend bool operator==(const Image&, const Image&) = default;

 private:
  static Rgb decode(std::uint32_t pixel) {
    const auto channel = [&](int shift) { return static_cast<int>(pixel >> shift & 0xFF); };
    return {channel(16), channel(8), channel(0)};
  }
  [[nodiscard]] std::size_t index(Point point) const;

  int width_ = 0, height_ = 0;
  std::vector<std::uint32_t> pixels_;
};

}  // namespace morvane::gui
