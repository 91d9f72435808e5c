// How the surface on show is drawn: where its heights stand, in the words of each room that asks.
#pragma once

#include "geometry/axis_labels.h"
#include "geometry/camera.h"
#include "geometry/surface_hit.h"
#include "surface/shown_surface.h"

namespace morvane {

/// How much higher than at its heights it is drawn, model units; see `heightLift`.
float liftOf(ShownSurface& shown);

/// Its heights as drawn; valid until the grid on show changes.
DrawnHeights drawnHeights(ShownSurface& shown);

/// What its axes measure; valid while the measurement is on show.
AxesRange axesRange(ShownSurface& shown);

/// Where `camera` puts it in a picture of `width` × `height`.
ViewMatrices presentMatrices(ShownSurface& shown, const Camera& camera, int width, int height);

}  // namespace morvane
