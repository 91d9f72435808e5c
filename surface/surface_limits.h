// The height limits of a surface, true and displayed, and the crop that bounds the displayed ones.
#pragma once

#include "resfile/height_grid.h"

namespace morvane {

/// The limits an operator set for the displayed heights.
struct Crop {
  bool on = false;
  float min = 0.0F;
  float max = 0.0F;

  /// `height` within the limits; unchanged while the crop is off. Above is tested first, as the
  /// limits may be typed the wrong way round.
  [[nodiscard]] float clamp(float height) const {
    if (!on) return height;
    if (height > max) return max;
    return height < min ? min : height;
  }
  bool operator==(const Crop&) const = default;
};

struct SurfaceLimits {
  float trueMin = 0.0F;  ///< lowest height seen
  float trueMax = 0.0F;  ///< highest height seen
  float zMin = 0.0F;     ///< lowest displayed height
  float zMax = 0.0F;     ///< highest displayed height
};

/// The limits of `grid` under `crop`, found by the seven workers. They start at the first finite
/// height; beyond it only the samples that have a cell above and to the left take part (kept: an
/// extreme in row 0 or column 0 does not count). All zero when no height is finite.
SurfaceLimits findLimits(const HeightGrid& grid, const Crop& crop);

}  // namespace morvane
