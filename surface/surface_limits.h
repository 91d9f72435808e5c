// The true and displayed height limits of a surface, and the crop that bounds the displayed ones.
#pragma once

#include <limits>

#include "resfile/height_grid.h"

namespace morvane {

/// The limits an operator set for the displayed heights.
struct Crop {
  bool on = false;
  float min = 0.0F;
  float max = 0.0F;

  /// `height` clamped to the limits; unchanged while the crop is off. The maximum is tested first.
  /// This matters when the typed minimum is above the maximum.
  [[nodiscard]] float clamp(float height) const {
    if (!on) return height;
    if (height > max) return max;
    return height < min ? min : height;
  }
  bool operator==(const Crop&) const = default;
};

/// The height at which `height` of a grid is drawn; NaN for a missing point.
inline float drawnHeight(double height, const Crop& crop) {
  return isMissing(height) ? std::numeric_limits<float>::quiet_NaN()
                           : crop.clamp(static_cast<float>(height));
}

/// A range of heights.
struct HeightRange {
  float min = 0.0F;
  float max = 0.0F;
};

struct SurfaceLimits {
  float trueMin = 0.0F;  ///< lowest height of the grid
  float trueMax = 0.0F;  ///< highest height of the grid
  float zMin = 0.0F;     ///< lowest displayed height
  float zMax = 0.0F;     ///< highest displayed height
};

/// The limits of `grid` under `crop`, computed by the seven workers. They start at the first finite
/// height. Kept: an extreme in row 0 or column 0 does not count. All zero when no height is finite.
SurfaceLimits findLimits(const HeightGrid& grid, const Crop& crop);

}  // namespace morvane
