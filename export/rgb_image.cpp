#include "export/rgb_image.h"

#include <cstdint>

#include "base/little_endian.h"

namespace morvane {
namespace {

std::size_t strideOf(const RgbImage& image) {
  return (3 * static_cast<std::size_t>(image.width) + 3) / 4 * 4;
}

}  // namespace

std::size_t bitmapFileBytes(const RgbImage& image) {
  return kBitmapHeaders + strideOf(image) * static_cast<std::size_t>(image.height);
}

Bytes bitmapFile(const RgbImage& image) {
  const std::size_t stride = strideOf(image);
  const auto height = static_cast<std::size_t>(image.height);
  Bytes file(bitmapFileBytes(image));
  const auto put = [&file](std::size_t at, auto value) {
    writeLe(reinterpret_cast<std::byte*>(file.data() + at), value);
  };
  put(0, std::uint16_t{0x4D42});  // "BM"
  put(2, static_cast<std::uint32_t>(file.size()));
  put(10, static_cast<std::uint32_t>(kBitmapHeaders));
  put(14, static_cast<std::uint32_t>(kBitmapHeaders - kBitmapFileHeader));
  put(18, static_cast<std::int32_t>(image.width));
  put(22, static_cast<std::int32_t>(image.height));
  put(26, std::uint16_t{1});   // planes
  put(28, std::uint16_t{24});  // bits of a pixel
  put(34, static_cast<std::uint32_t>(stride * height));
  for (std::size_t y = 0; y < height; ++y) {
    const unsigned char* from = image.row(y);
    unsigned char* to = file.data() + kBitmapHeaders + stride * (height - 1 - y);
    for (int x = 0; x < image.width; ++x, from += 3, to += 3) {
      to[0] = from[2];
      to[1] = from[1];
      to[2] = from[0];
    }
  }
  return file;
}

}  // namespace morvane
