// How the surface shown is drawn, as the axes, the picking and the camera need it.
#pragma once

#include "geometry/axis_labels.h"
#include "geometry/camera.h"
#include "geometry/surface_hit.h"
#include "surface/shown_surface.h"

namespace morvane {

/// The vertical offset at which it is drawn, model units; see `heightLift`.
float liftOf(ShownSurface& shown);

/// Its heights as drawn. Valid until the grid shown changes.
DrawnHeights drawnHeights(ShownSurface& shown);

/// The ranges of its axes. Valid while the measurement is shown.
AxesRange axesRange(ShownSurface& shown);

/// The matrices for `camera` and a picture of `width` × `height`.
ViewMatrices currentMatrices(ShownSurface& shown, const Camera& camera, int width, int height);

/// The largest step of a coarse mesh that has a point for each pixel of a picture of `width` ×
/// `height` pixels. So the picture can hardly be told from that of all points.
std::size_t stepForPixels(ShownSurface& shown, const Camera& camera, int width, int height);

}  // namespace morvane
