// Reads Windows bitmaps: the header, and the pixel rows without their padding.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <span>
#include <string>
#include <vector>

namespace morvane {

/// The file header and information header of a bitmap, in the order of the file.
struct BitmapHeader {
  std::uint16_t signature = 0;
  std::uint32_t fileSize = 0;
  std::uint32_t reserved = 0;
  std::uint32_t dataOffset = 0;
  std::uint32_t infoHeaderSize = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::uint16_t planes = 0;
  std::int16_t bitsPerPixel = 0;
  std::uint32_t compression = 0;
  std::uint32_t imageSize = 0;
  std::uint32_t horizontalResolution = 0;
  std::uint32_t verticalResolution = 0;
  std::uint32_t paletteColours = 0;
  std::uint32_t importantColours = 0;
};

/// Each read replaces the content of the object.
class BitmapImage {
 public:
  /// Writes its diagnostics to `log`, which must outlive the object.
  explicit BitmapImage(std::ostream& log) : log_(&log) {}

  /// Reads the bitmap `path` (UTF-8) of 8 or 24 bits per pixel and returns the bits per pixel. A
  /// file that cannot be opened leaves the previous content. A wrong signature is logged and
  /// ignored. With another depth, or impossible sizes, only the header is read. Pixels missing at
  /// the end of the file are zero. Kept: 24-bit rows are assumed to be padded like 8-bit rows, so
  /// rows of an odd width come out shifted.
  std::int16_t readBitmap(const std::string& path);

  [[nodiscard]] const BitmapHeader& header() const { return header_; }
  /// width × height pixels, bottom row first: one grey byte each, or blue, green, red. Empty when
  /// the last read found no pixels.
  [[nodiscard]] std::span<const std::uint8_t> pixels() const { return pixels_; }
  [[nodiscard]] std::size_t bytesPerPixel() const { return header_.bitsPerPixel == 24 ? 3 : 1; }

 private:
  void logHeader() const;
  bool makeRoom();
  [[nodiscard]] bool sizesAreTrue(std::uint64_t fileBytes) const;

  std::ostream* log_;
  BitmapHeader header_;
  std::vector<std::uint8_t> pixels_;
};

}  // namespace morvane
