#include "surface/bitmap_drape.h"

#include <algorithm>

namespace morvane {

BitmapDrape::BitmapDrape(const BitmapImage& image, std::size_t gridWidth, std::size_t gridHeight)
    : image_(image) {
  const auto width = static_cast<std::size_t>(image.header().width);
  const auto height = static_cast<std::size_t>(image.header().height);
  const bool sameSize = width == gridWidth && height == gridHeight;
  rows_ = align(gridHeight, height, sameSize);
  columns_ = align(gridWidth, width, sameSize);
}

BitmapDrape::Axis BitmapDrape::align(std::size_t points, std::size_t pixels, bool sameSize) {
  // Ranges are given in points; n points have n − 1 cells between them.
  const auto cells = [](std::size_t first, std::size_t end) {
    return Range{first, std::max(first, end > 0 ? end - 1 : 0)};
  };
  if (sameSize) return {cells(0, points - 1), 0};
  if (pixels > points) {
    return {cells(0, points), static_cast<std::ptrdiff_t>((pixels - points) / 2)};
  }
  const std::size_t offset = (points - pixels) / 2;
  return {cells(offset, pixels > offset ? pixels - offset : 0),
          -static_cast<std::ptrdiff_t>(offset)};
}

Colour BitmapDrape::colourOf(std::size_t row, std::size_t column) const {
  const auto y = static_cast<std::size_t>(static_cast<std::ptrdiff_t>(row) + rows_.shift);
  const auto x = static_cast<std::size_t>(static_cast<std::ptrdiff_t>(column) + columns_.shift);
  const std::size_t index = y * static_cast<std::size_t>(image_.header().width) + x;
  const std::uint8_t* pixel = image_.pixels().data() + index * image_.bytesPerPixel();
  if (image_.bytesPerPixel() == 1) {
    const float grey = static_cast<float>(*pixel) * 0.00390625F;
    return {grey, grey, grey};
  }
  const auto part = [](std::uint8_t value) { return static_cast<float>(value) * 0.003921569F; };
  return {part(pixel[2]), part(pixel[1]), part(pixel[0])};
}

}  // namespace morvane
