// Percentiles of the heights of a grid.
#pragma once

#include "resfile/height_grid.h"
#include "surface/surface_limits.h"

namespace morvane {

/// A lower and an upper percentage of points, 0 to 100.
struct Percentages {
  double low = 1.0;
  double high = 99.0;
};

/// The percentiles of the heights of `grid`, in single precision. Of n heights in rising order,
/// numbered from 0, the percentile of p % is the one at place p / 100 × (n − 1), linear between two
/// neighbours: 0 % is the lowest height, 50 % the median, 100 % the highest. Missing points do not
/// count. Both are 0 if there is no height. Computed by the seven workers, exactly, in 2 MB of
/// memory for a grid of any size.
HeightRange findPercentiles(const HeightGrid& grid, const Percentages& percentages);

}  // namespace morvane
