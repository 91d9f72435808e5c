#include "geometry/point_text.h"

#include <algorithm>
#include <cmath>

#include "base/number_text.h"
#include "geometry/drawn_surface.h"
#include "surface/mesh.h"

namespace morvane {
namespace {

/// Three decimals, or as many as show two digits of a step of `step`.
int decimalsFor(double step) {
  constexpr int kFewest = 3;
  constexpr int kMost = 9;
  if (!(step > 0.0)) return kFewest;
  return std::clamp(1 - static_cast<int>(std::floor(std::log10(step))), kFewest, kMost);
}

std::string lengthText(std::size_t index, double pitch) {
  return shownText(static_cast<double>(index) * pitch, decimalsFor(pitch)) + " mm";
}

std::string heightText(ShownSurface& shown, double height) {
  constexpr double kParts = 1000.0;  // of the height of the surface are told apart
  const SurfaceLimits& limits = shown.measured().limits();
  const double range = double{limits.trueMax} - double{limits.trueMin};
  return shownText(height, decimalsFor(range / kParts)) + " µm";
}

}  // namespace

std::string pointText(ShownSurface& shown, const Ray& ray, const glm::mat4& overlay) {
  const HeightGrid& grid = *shown.measured().shown();
  const std::optional<SurfaceHit> hit = surfaceHit(drawnHeights(shown), ray, overlay);
  if (!hit) return {};
  const float column = std::round(hit->point.x * kPointsPerUnit);
  const float row = std::round(hit->point.y * kPointsPerUnit);
  const auto isIn = [](float index, std::size_t count) {
    return index >= 0.0F && index < static_cast<float>(count);
  };
  if (!isIn(column, grid.width()) || !isIn(row, grid.height())) return {};
  const auto c = static_cast<std::size_t>(column);
  const auto r = static_cast<std::size_t>(row);
  const ResHeader& header = shown.measurement().header;
  const double height = grid.row(r)[c];
  const bool there = hit->onSurface && !isMissing(height);
  return "x " + lengthText(c, header.pixelSizeX) + "   y " + lengthText(r, header.pixelSizeY) +
         "   z " + (there ? heightText(shown, height) : "no data");
}

}  // namespace morvane
