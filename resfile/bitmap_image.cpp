#include "resfile/bitmap_image.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <new>
#include <ostream>

#include "base/file_io.h"
#include "base/little_endian.h"

namespace morvane {
namespace {

constexpr std::size_t kBitmapHeaderBytes = 54;
constexpr std::uint16_t kSignature = 0x4D42;  // "BM"

BitmapHeader decode(const std::byte* bytes) {
  BitmapHeader header;
  header.signature = readLe<std::uint16_t>(bytes);
  header.fileSize = readLe<std::uint32_t>(bytes + 2);
  header.reserved = readLe<std::uint32_t>(bytes + 6);
  header.dataOffset = readLe<std::uint32_t>(bytes + 10);
  header.infoHeaderSize = readLe<std::uint32_t>(bytes + 14);
  header.width = readLe<std::int32_t>(bytes + 18);
  header.height = readLe<std::int32_t>(bytes + 22);
  header.planes = readLe<std::uint16_t>(bytes + 26);
  header.bitsPerPixel = readLe<std::int16_t>(bytes + 28);
  header.compression = readLe<std::uint32_t>(bytes + 30);
  header.imageSize = readLe<std::uint32_t>(bytes + 34);
  header.horizontalResolution = readLe<std::uint32_t>(bytes + 38);
  header.verticalResolution = readLe<std::uint32_t>(bytes + 42);
  header.paletteColours = readLe<std::uint32_t>(bytes + 46);
  header.importantColours = readLe<std::uint32_t>(bytes + 50);
  return header;
}

/// The padding of a row of 8-bit pixels, in bytes.
std::uint32_t paddingOf(std::int32_t width) {
  constexpr std::array<std::uint32_t, 4> kPadding = {0, 3, 2, 1};
  return kPadding[static_cast<std::uint32_t>(width) % 4];
}

/// Reads rows of `row` bytes until all are read or the file ends.
void readRows(std::FILE* file, std::span<std::uint8_t> pixels, std::size_t row, long padding) {
  while (!pixels.empty()) {
    if (std::fread(pixels.data(), 1, row, file) != row) return;
    if (std::fseek(file, padding, SEEK_CUR) != 0) return;
    pixels = pixels.subspan(row);
  }
}

}  // namespace

std::int16_t BitmapImage::readBitmap(const std::string& path) {
  *log_ << "Chosen Bitmap: " << path << '\n';
  const FilePtr file = openForReading(path);
  if (!file) {
    *log_ << "ERROR: FILE CANNOT BE OPENED\n";
    return header_.bitsPerPixel;
  }
  std::array<std::byte, kBitmapHeaderBytes> bytes{};
  [[maybe_unused]] const std::size_t got = std::fread(bytes.data(), 1, bytes.size(), file.get());
  header_ = decode(bytes.data());
  pixels_.clear();
  if (header_.signature != kSignature) *log_ << "File not Bitmap Format!\n";
  logHeader();
  if (!sizesAreTrue(lengthOf(file.get())) || !makeRoom()) {
    *log_ << "Bitmap of impossible size: " << header_.width << " x " << header_.height << '\n';
    return header_.bitsPerPixel;
  }
  if (header_.bitsPerPixel != 8 && header_.bitsPerPixel != 24) {
    *log_ << "Unsupported BPP for Bitmap\n";
    return header_.bitsPerPixel;
  }
  const std::size_t row = static_cast<std::size_t>(header_.width) * bytesPerPixel();
  if (std::fseek(file.get(), static_cast<long>(header_.dataOffset), SEEK_SET) == 0) {
    readRows(file.get(), pixels_, row, static_cast<long>(paddingOf(header_.width)));
  }
  return header_.bitsPerPixel;
}

bool BitmapImage::sizesAreTrue(std::uint64_t fileBytes) const {
  if (header_.width <= 0 || header_.height <= 0) return false;
  const std::uint64_t pixels =
      static_cast<std::uint64_t>(header_.width) * static_cast<std::uint64_t>(header_.height);
  const auto bits = static_cast<std::uint64_t>(std::max<std::int16_t>(header_.bitsPerPixel, 1));
  return pixels <= fileBytes * 8 / bits && pixels <= std::numeric_limits<std::int32_t>::max();
}

bool BitmapImage::makeRoom() {
  try {
    pixels_.assign(static_cast<std::size_t>(header_.width) *
                       static_cast<std::size_t>(header_.height) * bytesPerPixel(),
                   0);
  } catch (const std::bad_alloc&) {
    return false;
  }
  return true;
}

void BitmapImage::logHeader() const {
  const std::uint32_t padding = paddingOf(header_.width);
  *log_ << "Filesize: " << header_.fileSize << '\n'
        << "RESERVED: " << header_.reserved << '\n'
        << "Data Offset: " << header_.dataOffset << '\n'
        << "Info Header Size: " << header_.infoHeaderSize << '\n'
        << "BM Width: " << header_.width << '\n'
        << "BM Height: " << header_.height << '\n'
        << "Planes: " << header_.planes << '\n'
        << "BPP: " << header_.bitsPerPixel << '\n'
        << "Compression: " << header_.compression << '\n'
        << "Image Size: " << header_.imageSize << '\n'
        << "H Res: " << header_.horizontalResolution << '\n'
        << "V RES: " << header_.verticalResolution << '\n'
        << "Color Palette: " << header_.paletteColours << '\n'
        << "CI PAll: " << header_.importantColours << '\n'
        << "Pitch:" << padding << '\n'
        << "STUFF:" << 3 << '\n'
        << "Both:" << 3 * padding << '\n';
}

}  // namespace morvane
