#include "geometry/drawn_surface.h"

namespace morvane {

float liftOf(ShownSurface& shown) {
  const SurfaceModel& model = shown.measured();
  const HeightGrid& grid = *model.shown();
  return heightLift(model.limits(), model.autoScale(), grid.width(), grid.height(), shown.zScale());
}

DrawnHeights drawnHeights(ShownSurface& shown) {
  const SurfaceModel& model = shown.measured();
  return {*model.shown(), model.crop, shown.zScale(), model.shownMean(), liftOf(shown)};
}

AxesRange axesRange(ShownSurface& shown) {
  const SurfaceLimits& limits = shown.measured().limits();
  return {&shown.measurement().header, limits.zMin, limits.zMax, heightToModel(shown.zScale()),
          liftOf(shown)};
}

ViewMatrices currentMatrices(ShownSurface& shown, const Camera& camera, int width, int height) {
  const HeightGrid& grid = *shown.measured().shown();
  return viewMatrices(camera, width, height, grid.width(), grid.height(), shown.zScale(),
                      liftOf(shown));
}

}  // namespace morvane
