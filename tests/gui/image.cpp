#include "tests/gui/image.h"

#include <png.h>

#include <algorithm>
#include <cstdlib>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace morvane::gui {

std::ostream& operator<<(std::ostream& out, const Rgb& colour) {
  return out << '(' << colour.r << ", " << colour.g << ", " << colour.b << ')';
}

int difference(const Rgb& a, const Rgb& b) {
  return std::max({std::abs(a.r - b.r), std::abs(a.g - b.g), std::abs(a.b - b.b)});
}

int chroma(const Rgb& colour) {
  const auto [least, most] = std::minmax({colour.r, colour.g, colour.b});
  return most - least;
}

Image::Image(int width, int height, std::vector<std::uint32_t> pixels)
    : width_(width), height_(height), pixels_(std::move(pixels)) {}

std::size_t Image::index(Point point) const {
  if (point.x < 0 || point.y < 0 || point.x >= width_ || point.y >= height_) {
    throw std::out_of_range("a pixel beside the picture");
  }
  return static_cast<std::size_t>(point.y) * static_cast<std::size_t>(width_) +
         static_cast<std::size_t>(point.x);
}

Rgb Image::at(Point point) const { return decode(pixels_[index(point)]); }

Image Image::part(const Area& area) const {
  std::vector<std::uint32_t> pixels;
  for (int row = 0; row < area.h; ++row) {
    const auto* first = &pixels_[index({area.x, area.y + row})];
    (void)index({area.x + area.w - 1, area.y + row});
    pixels.insert(pixels.end(), first, first + area.w);
  }
  return {area.w, area.h, std::move(pixels)};
}

Image Image::ofPpm(const std::string& bytes) {
  std::istringstream in(bytes);
  std::string format;
  int width = 0, height = 0, strongest = 0;
  in >> format >> width >> height >> strongest;
  in.get();
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width) *
                                    static_cast<std::size_t>(height));
  for (std::uint32_t& pixel : pixels) {
    for (int i = 0; i < 3; ++i) pixel = pixel << 8 | static_cast<std::uint32_t>(in.get());
  }
  return {width, height, pixels};
}

void Image::savePng(const std::string& path) const {
  std::vector<std::uint8_t> bytes;
  for (const std::uint32_t pixel : pixels_) {
    for (const int shift : {16, 8, 0}) bytes.push_back(static_cast<std::uint8_t>(pixel >> shift));
  }
  png_image png{};
  png.version = PNG_IMAGE_VERSION;
  png.width = static_cast<png_uint_32>(width_);
  png.height = static_cast<png_uint_32>(height_);
  png.format = PNG_FORMAT_RGB;
  png_image_write_to_file(&png, path.c_str(), 0, bytes.data(), 0, nullptr);
}

}  // namespace morvane::gui
