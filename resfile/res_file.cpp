#include "resfile/res_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <limits>
#include <ostream>
#include <vector>

#include "base/file_io.h"
#include "base/little_endian.h"
#include "base/memory_advice.h"
#include "base/safe_file.h"
#include "resfile/region_file.h"

namespace morvane {
namespace {

/// Reads up to `bytes` bytes and returns how many were read.
std::uint64_t readUpTo(std::FILE* file, void* target, std::size_t bytes) {
  return bytes == 0 ? 0 : std::fread(target, 1, bytes, file);
}

/// Reads doubles into `heights` and returns the number of bytes read. A truncated last number is
/// set to 0, since some of its bytes would make a different number.
std::uint64_t readDoubles(std::FILE* file, std::span<double> heights) {
  const std::uint64_t got = readUpTo(file, heights.data(), heights.size_bytes());
  if (got % sizeof(double) != 0) heights[got / sizeof(double)] = 0.0;
  return got;
}

/// Reads 16-bit counts, times `scale`, into `heights` and returns the number of bytes read.
std::uint64_t readCounts(std::FILE* file, double scale, std::span<double> heights) {
  std::vector<std::byte> piece(std::size_t{1} << 18);
  std::uint64_t total = 0;
  while (!heights.empty()) {
    const std::size_t wanted = std::min(heights.size(), piece.size() / 2);
    const std::uint64_t got = readUpTo(file, piece.data(), wanted * 2);
    total += got;
    for (std::size_t i = 0; i < got / 2; ++i) {
      heights[i] = readLe<std::int16_t>(piece.data() + 2 * i) * scale;
    }
    if (got < wanted * 2) break;
    heights = heights.subspan(wanted);
  }
  return total;
}

/// How many bytes of the grid a file of `length` bytes fills.
std::uint64_t bytesToFill(const HeightGrid& grid, std::int32_t numType, std::uint64_t length) {
  const std::uint64_t growth = numType == kNumTypeCounts16 ? 4 : 1;  // 16 bits become 64
  return std::min(std::uint64_t{grid.count()} * sizeof(double), length * growth);
}

}  // namespace

resFile::resFile(std::ostream& log) : log_(&log) {}

void resFile::update(const std::string& path) {
  *log_ << ">>(resFile) -- File updated: " << path << '\n';
  try {
    path_ = path;
  } catch (const std::exception& error) {
    *log_ << error.what() << '\n';
  }
  read();
}

void resFile::read() {
  grid_.reset();
  const FilePtr file = openForReading(path_);
  if (!file) {
    systemReason_ = std::strerror(errno);
    *log_ << "ERROR: FILE CANNOT BE OPENED\n"
          << "  err " << systemReason_ << " \n";
    return;
  }
  // The grid is read straight into its memory; a stdio buffer would only cost a copy.
  std::setvbuf(file.get(), nullptr, _IONBF, 0);
  std::int32_t version = 0;
  const HeaderBytes bytes = readHeader(file.get(), version);
  decodeHeader(bytes, version, header_, results_, *log_);
  fileSize_ = headerSize_ + readGrid(file.get());
  readable_ = std::ferror(file.get()) == 0;
  systemReason_ = readable_ ? "" : std::strerror(errno);
  if (!readable_) *log_ << "ERROR: FILE CANNOT BE READ\n";
  pointCount_ = grid_ ? static_cast<std::uint32_t>(grid_->count()) : 0;
  loaded_ = true;
}

HeaderBytes resFile::readHeader(std::FILE* file, std::int32_t& version) {
  HeaderBytes bytes{};
  headerSize_ = readUpTo(file, bytes.data(), bytes.size());
  ownHeader_ = bytes;
  version = readLe<std::int32_t>(bytes.data() + header_offset::kVersion);
  *log_ << "(resFile) -- File version: " << version << '\n';
  if (version >= 4) {
    rawHeader_ = bytes;
    *log_ << "Size of Res Head 4: " << kHeaderBytes << '\n'
          << "Headersize: " << headerSize_ << '\n';
  } else if (version == 3) {
    *log_ << "VERSION 3 DETECTED\n";
  }
  if (headerSize_ < kHeaderBytes) {
    *log_ << "(resFile) - DAMAGED FIELD header length: " << headerSize_ << '\n';
  }
  return bytes;
}

std::uint64_t resFile::readGrid(std::FILE* file) {
  std::shared_ptr<HeightGrid> grid = HeightGrid::zeroed(header_.width, header_.height);
  if (grid && !fitsIntoMemory(bytesToFill(*grid, header_.numType, lengthOf(file)))) grid.reset();
  *log_ << "(resFile) - Num Type: " << header_.numType << '\n';
  grid_ = grid;
  if (!grid) {
    *log_ << "(resFile) - NO GRID OF " << header_.width << " x " << header_.height << '\n';
    return 0;
  }
  const std::span<double> heights = grid->values();
  switch (header_.numType) {
    case kNumTypeDoubles:
      return readDoubles(file, heights);
    case kNumTypeCounts16:
      return readCounts(file, header_.heightScale, heights);
    default:
      return 0;
  }
}

bool resFile::isValid() const {
  *log_ << "WIDTH: " << header_.width << '\n'
        << "HEIGHT: " << header_.height << '\n'
        << "HEADERSIZE: " << headerSize_ << '\n'
        << "fileSize: " << fileSize_ << '\n';
  return hasItsLength();
}

bool resFile::hasItsLength() const {
  // Checks the sizes, not the grid: after a failed open the sizes are still those of the previous
  // file.
  const std::int64_t count = std::int64_t{header_.width} * header_.height;
  if (!readable_ || header_.width < 0 || header_.height < 0 || count != pointCount_) return false;
  const auto points = static_cast<std::uint64_t>(count);
  return headerSize_ + points * 8 == fileSize_ || headerSize_ + points * 2 == fileSize_;
}

std::string resFile::trouble() const {
  if (!systemReason_.empty()) return systemReason_;
  if (grid_ && hasItsLength()) return {};
  if (headerSize_ < kHeaderBytes) return "it ends within its header";
  const std::int64_t count = std::int64_t{header_.width} * header_.height;
  const bool possible = header_.width >= 0 && header_.height >= 0 &&
                        count <= std::numeric_limits<std::int32_t>::max();
  if (!grid_) {
    return (possible ? "there is not enough memory for " : "its header announces ") +
           std::to_string(header_.width) + " x " + std::to_string(header_.height) + " points";
  }
  if (header_.numType != kNumTypeDoubles && header_.numType != kNumTypeCounts16) {
    return "its element type " + std::to_string(header_.numType) + " is unknown";
  }
  const int pointBytes = header_.numType == kNumTypeDoubles ? 8 : 2;
  return "it holds " + std::to_string(fileSize_) + " of " +
         std::to_string(headerSize_ + static_cast<std::uint64_t>(count * pointBytes)) + " bytes";
}

std::string resFile::writeRegion(std::span<const double> values, std::int32_t regionWidth,
                                 std::int32_t regionHeight, const std::string& path,
                                 const HeaderBytes* header) const {
  SafeFile file(path);
  writeHeights(header != nullptr ? *header : rawHeader_, values, regionWidth, regionHeight, file);
  return file.commit();
}

}  // namespace morvane
