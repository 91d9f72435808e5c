// The point of the surface under the cursor: where a picking ray meets the heights as drawn.
#pragma once

#include <glm/mat4x4.hpp>
#include <glm/vec3.hpp>
#include <optional>

#include "geometry/camera.h"
#include "resfile/height_grid.h"
#include "surface/surface_limits.h"

namespace morvane {

/// What is needed to know where the surface is drawn.
struct DrawnHeights {
  const HeightGrid& grid;
  Crop crop;            ///< bounds the drawn heights
  float zScale = 1.0F;  ///< their exaggeration
  float mean = 0.0F;    ///< of the heights; where the plane beside the surface lies
  float lift = 0.0F;    ///< how much higher they are drawn, model units
};

/// Where a height is drawn, model units.
double modelHeight(const DrawnHeights& heights, float height);

struct SurfaceHit {
  glm::vec3 point;  ///< in the space of the pins: model units before centring, turn and pan
  bool onSurface;   ///< false: on the plane of the mean height
};

/// The first point in which `ray` meets the drawn triangles, from above or below. Where it meets
/// none, beside the surface or in a hole of missing points, the plane of the mean height takes
/// their place; nothing when the ray misses that too. `overlay` is the frame's matrix of the same
/// name. Looks only at the cells that the ray passes over, at most width + height.
std::optional<SurfaceHit> surfaceHit(const DrawnHeights& heights, const Ray& ray,
                                     const glm::mat4& overlay);

}  // namespace morvane
