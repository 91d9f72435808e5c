// The point of the surface under the cursor: the intersection of a picking ray with the heights as
// drawn.
#pragma once

#include <cstddef>
#include <glm/mat4x4.hpp>
#include <glm/vec3.hpp>
#include <optional>

#include "geometry/camera.h"
#include "resfile/height_grid.h"
#include "surface/surface_limits.h"

namespace morvane {

/// The heights and how they are drawn.
struct DrawnHeights {
  const HeightGrid& grid;
  Crop crop;            ///< bounds the drawn heights
  float zScale = 1.0F;  ///< their exaggeration
  float mean = 0.0F;    ///< of the heights; the height of the plane beside the surface
  float lift = 0.0F;    ///< offset at which they are drawn, model units
};

/// The model z of a grid point; NaN for a missing one.
double modelHeight(const DrawnHeights& heights, std::size_t row, std::size_t column);

struct SurfaceHit {
  glm::vec3 point;  ///< in pin space: model units before centring, rotation and pan
  bool onSurface;   ///< false: on the plane of the mean height
};

/// The first intersection of `ray` with the drawn triangles, from above or below. If there is none,
/// beside the surface or in a hole of missing points, the intersection with the plane of the mean
/// height. None when the ray misses that too. `overlay` is the frame's `ViewMatrices::overlay`.
/// Only the cells under the ray are tested, at most width + height.
std::optional<SurfaceHit> surfaceHit(const DrawnHeights& heights, const Ray& ray,
                                     const glm::mat4& overlay);

}  // namespace morvane
