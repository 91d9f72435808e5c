// Saves a region of a measurement as a measurement file.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/byte_sink.h"
#include "resfile/grid_region.h"
#include "resfile/height_grid.h"
#include "resfile/measurement.h"
#include "resfile/res_file.h"

namespace morvane {

/// The heights of `region` of `grid`, in row order. The region must lie inside the grid.
std::vector<double> cutHeights(const HeightGrid& grid, const GridRegion& region);

/// Whether `name` is a valid region name: letters, digits, blanks, `-`, `_` and `.`, and not only
/// blanks.
bool isRegionName(std::string_view name);

/// The header of `source` for a file of doubles. The reader may hold the raw header of another
/// file, and the source may have 16-bit counts.
HeaderBytes headerForDoubles(const Measurement& source);

/// Writes a measurement file of `width` × `height` heights in row order: `header` with the two
/// sizes replaced, then the heights as doubles.
void writeHeights(HeaderBytes header, std::span<const double> heights, std::int32_t width,
                  std::int32_t height, ByteSink& sink);

/// Writes `region` of `grid` to `path` through `file.writeRegion`. The header is that of `source`,
/// the measurement shown, with the element type changed to doubles. So the file opens with the same
/// heights, texts and results. Returns an empty text on success. On failure it returns the system's
/// error message and leaves `path` unchanged.
[[nodiscard]] std::string saveRegion(const resFile& file, const Measurement& source,
                                     const HeightGrid& grid, const GridRegion& region,
                                     const std::string& path);

}  // namespace morvane
