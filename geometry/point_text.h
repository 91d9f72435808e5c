// The point of the surface under the cursor in words.
#pragma once

#include <glm/mat4x4.hpp>
#include <string>

#include "geometry/camera.h"
#include "surface/shown_surface.h"

namespace morvane {

/// Place and height of the grid point nearest to where `ray` meets the surface, for display:
/// "x 1.240 mm   y 0.060 mm   z -0.517 µm". The height is that of the grid shown, never cut by
/// limits. x and y are the point's column and row times their pitch. Over a missing point it says
/// "no data" in place of the height. Empty beside the surface. `overlay` is the frame's
/// `ViewMatrices::overlay`.
std::string pointText(ShownSurface& shown, const Ray& ray, const glm::mat4& overlay);

}  // namespace morvane
