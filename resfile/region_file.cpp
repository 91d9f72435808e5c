#include "resfile/region_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>

#include "base/little_endian.h"

namespace morvane {

std::vector<double> cutHeights(const HeightGrid& grid, const GridRegion& region) {
  std::vector<double> heights;
  heights.reserve(region.width * region.height);
  for (std::size_t row = region.row; row < region.row + region.height; ++row) {
    const auto piece = grid.row(row).subspan(region.column, region.width);
    heights.insert(heights.end(), piece.begin(), piece.end());
  }
  return heights;
}

bool isRegionName(std::string_view name) {
  const auto allowed = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view(" -_.").find(c) != std::string_view::npos;
  };
  return name.find_first_not_of(" .") != std::string_view::npos &&
         std::all_of(name.begin(), name.end(), allowed);
}

HeaderBytes headerForDoubles(const Measurement& source) {
  HeaderBytes header = source.ownHeader;
  writeLe(header.data() + header_offset::kNumType, kNumTypeDoubles);
  return header;
}

void writeHeights(HeaderBytes header, std::span<const double> heights, std::int32_t width,
                  std::int32_t height, ByteSink& sink) {
  writeLe(header.data() + header_offset::kWidth, width);
  writeLe(header.data() + header_offset::kHeight, height);
  sink.write(header.data(), header.size());
  sink.write(heights.data(), heights.size_bytes());
}

std::string saveRegion(const resFile& file, const Measurement& source, const HeightGrid& grid,
                       const GridRegion& region, const std::string& path) {
  std::vector<double> heights;
  try {
    heights = cutHeights(grid, region);
  } catch (const std::bad_alloc&) {
    return std::strerror(ENOMEM);
  }
  const HeaderBytes header = headerForDoubles(source);
  return file.writeRegion(heights, static_cast<std::int32_t>(region.width),
                          static_cast<std::int32_t>(region.height), path, &header);
}

}  // namespace morvane
