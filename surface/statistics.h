// Mean, variance and deviation of a height grid, and the vertical scale they suggest.
#pragma once

#include <cstddef>
#include <span>

namespace morvane {

/// Missing points take no part in any of these. Sums run in row order in a single-precision
/// accumulator (the addition itself in double), so large grids lose precision exactly as in every
/// program that shows these numbers. All are 0 when no height is finite.

struct HeightMean {
  float mean = 0.0F;
  std::size_t finite = 0;  ///< how many heights are finite
};

/// Arithmetic mean over the finite heights.
HeightMean meanOf(std::span<const double> heights);

/// Population variance about `mean`.
float varianceOf(std::span<const double> heights, const HeightMean& mean);

/// The vertical exaggeration at which a surface of deviation `sd` and `width` columns looks well
/// proportioned. Infinite for a flat surface.
float automaticScale(float sd, std::size_t width);

}  // namespace morvane
