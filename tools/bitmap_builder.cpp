#include "tools/bitmap_builder.h"

#include <cstring>
#include <stdexcept>

#include "base/little_endian.h"

namespace morvane {

std::vector<std::byte> encodeBitmap(const BitmapContent& content) {
  constexpr std::uint32_t kHeaders = 54;
  constexpr std::uint32_t kShades = 256;
  const bool grey = content.bitsPerPixel == 8;
  const std::uint32_t start = kHeaders + (grey ? 4 * kShades : 0);
  const auto row = static_cast<std::uint32_t>(content.width) * (grey ? 1 : 3);
  const std::uint32_t paddedRow = (row + 3) / 4 * 4;
  const std::uint32_t image = paddedRow * static_cast<std::uint32_t>(content.height);
  if (content.pixels.size() != std::size_t{row} * static_cast<std::uint32_t>(content.height)) {
    throw std::invalid_argument("the bitmap has more or fewer pixels than its size says");
  }

  std::vector<std::byte> bytes(start + image);
  std::byte* out = bytes.data();
  std::memcpy(out, "BM", 2);
  writeLe(out + 2, start + image);
  writeLe(out + 10, start);
  writeLe(out + 14, std::uint32_t{40});
  writeLe(out + 18, content.width);
  writeLe(out + 22, content.height);
  writeLe(out + 26, std::uint16_t{1});
  writeLe(out + 28, static_cast<std::uint16_t>(content.bitsPerPixel));
  writeLe(out + 34, image);
  for (std::uint32_t shade = 0; grey && shade < kShades; ++shade) {
    writeLe(out + kHeaders + std::size_t{4} * shade, shade * 0x010101U);
  }
  for (std::uint32_t y = 0; y < static_cast<std::uint32_t>(content.height); ++y) {
    std::memcpy(out + start + std::size_t{y} * paddedRow,
                content.pixels.data() + std::size_t{y} * row, row);
  }
  return bytes;
}

}  // namespace morvane
