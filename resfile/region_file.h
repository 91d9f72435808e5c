// A piece of a measurement as a measurement file of its own.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "resfile/height_grid.h"
#include "resfile/measurement.h"
#include "resfile/res_file.h"

namespace morvane {

/// A rectangle of grid points.
struct GridRegion {
  std::size_t column = 0;
  std::size_t row = 0;
  std::size_t width = 0;
  std::size_t height = 0;
};

/// The heights of `region` of `grid`, in row order; the region must lie inside.
std::vector<double> cutHeights(const HeightGrid& grid, const GridRegion& region);

/// Whether `name` may name a region: letters, digits, blank, `-`, `_` and `.`, not blank alone.
bool isRegionName(std::string_view name);

/// Writes `region` of `grid` to `path` through `file.writeRegion`, with the header of `source`, the
/// measurement on show, put right for doubles: the file opens again with the same heights, texts
/// and results. Empty on success, else the system's reason; then `path` is as it was.
[[nodiscard]] std::string saveRegion(const resFile& file, const Measurement& source,
                                     const HeightGrid& grid, const GridRegion& region,
                                     const std::string& path);

}  // namespace morvane
