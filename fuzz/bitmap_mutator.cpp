// Changes to bitmaps: header fields, sizes with their rows of pixels.
#include <sstream>

#include "fuzz/fuzz_support.h"
#include "fuzz/header_mutator.h"
#include "resfile/bitmap_image.h"

namespace morvane {
namespace {

constexpr std::size_t kBitmapHeaderBytes = 54;
constexpr std::size_t kMostPixels = 24;  // along a side of a fitted picture

/// Width, height, depth and start of the pixels lead the fields.
void fit(const FileLayout& layout, FileBytes& file, Dice& dice) {
  const bool grey = roll(dice, 2) == 0;
  const std::size_t start = kBitmapHeaderBytes + (grey ? roll(dice, 2) * 1024 : 0);
  const std::size_t width = roll(dice, kMostPixels);
  const std::size_t height = roll(dice, kMostPixels);
  const std::size_t row = (width * (grey ? 1 : 3) + 3) / 4 * 4;
  resizeBody(file, start, row * height);
  std::size_t field = 0;
  for (const std::size_t value : {width, height, std::size_t{grey ? 8U : 24U}, start}) {
    putInteger(file, layout.fields[field++], static_cast<std::int64_t>(value));
  }
}

FileLayout findLayout() {
  using H = BitmapHeader;
  const auto read = [](const FileBytes& bytes) {
    std::ostringstream log;
    BitmapImage image(log);
    image.readBitmap(inputFile(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
    return image.header();
  };
  return {kBitmapHeaderBytes,
          locateAll(kBitmapHeaderBytes, read, &H::width, &H::height, &H::bitsPerPixel,
                    &H::dataOffset, &H::signature, &H::fileSize, &H::reserved, &H::infoHeaderSize,
                    &H::planes, &H::compression, &H::imageSize, &H::horizontalResolution,
                    &H::verticalResolution, &H::paletteColours, &H::importantColours),
          1, fit};
}

}  // namespace
}  // namespace morvane

// NOLINTNEXTLINE(readability-identifier-naming): the name is libFuzzer's.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t mostBytes, unsigned seed) {
  static const morvane::FileLayout layout = morvane::findLayout();
  return morvane::mutate(layout, data, size, mostBytes, seed);
}
