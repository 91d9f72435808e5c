#include "geometry/drawn_surface.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <glm/geometric.hpp>

#include "surface/mesh.h"

namespace morvane {
namespace {

/// The corners of the box around a surface, in pin space.
std::array<glm::vec3, 8> boxOf(ShownSurface& shown) {
  const HeightGrid& grid = *shown.measured().shown();
  const AxisLines lines = axisLines(axesRange(shown));
  std::array<glm::vec3, 8> corners;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    corners[i] = {(i & 1U) != 0 ? modelUnits(grid.width() - 1) : 0.0F,
                  (i & 2U) != 0 ? modelUnits(grid.height() - 1) : 0.0F,
                  (i & 4U) != 0 ? lines.top.z : lines.bottom.z};
  }
  return corners;
}

}  // namespace

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

std::size_t stepForPixels(ShownSurface& shown, const Camera& camera, int width, int height) {
  const ViewMatrices matrices = currentMatrices(shown, camera, width, height);
  const glm::dmat4 toClip = matrices.projection * matrices.view * matrices.overlay;
  const auto seen = [&](const glm::vec3& point) { return project(toClip, width, height, point); };
  const float onePoint = modelUnits(1);
  constexpr float kLeast = 1e-3F;
  float apart = kLeast;  // neighbours, pixels
  for (const glm::vec3& corner : boxOf(shown)) {
    const glm::vec3 here = seen(corner);
    if (!(std::abs(here.z) <= 1.0F)) return 1;  // beside or behind the eye
    for (const glm::vec3& neighbour : {glm::vec3(onePoint, 0, 0), glm::vec3(0, onePoint, 0)}) {
      apart = std::max(apart, glm::distance(glm::vec2(here), glm::vec2(seen(corner + neighbour))));
    }
  }
  return std::max<std::size_t>(static_cast<std::size_t>(1.0F / apart), 1);
}

}  // namespace morvane
