// Mean and variance of a height grid, and the automatic vertical scale.
#pragma once

#include <cstddef>
#include <span>

namespace morvane {

/// Model units per height unit at a z-scale of 1. It is chosen for 1000 grid points per model unit.
inline constexpr double kModelUnitsPerHeight = 0.000027;

/// Missing points are ignored. Sums run in row order in a single-precision accumulator (the
/// addition itself in double). So large grids lose precision, but the numbers agree with those of
/// other programs. All are 0 when no height is finite.

struct HeightMean {
  float mean = 0.0F;
  std::size_t finite = 0;  ///< number of finite heights
};

/// Arithmetic mean over the finite heights.
HeightMean meanOf(std::span<const double> heights);

/// Population variance about `mean`.
float varianceOf(std::span<const double> heights, const HeightMean& mean);

/// The automatic vertical exaggeration for a surface with the standard deviation `sd` and `width`
/// columns. Infinite for a flat surface.
float automaticScale(float sd, std::size_t width);

}  // namespace morvane
