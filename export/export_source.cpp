#include "export/export_source.h"

#include <cmath>

#include "geometry/profile_section.h"
#include "surface/shown_surface.h"

namespace morvane {
namespace {

/// The grid point nearest to `millimetres` along an axis of `count` points; nothing if it is
/// outside.
std::optional<std::int64_t> nearestPoint(double millimetres, double pitch, std::size_t count) {
  const double point = std::round(millimetres / pitch);
  if (!(point >= 0.0 && point < static_cast<double>(count))) return std::nullopt;
  return static_cast<std::int64_t>(point);
}

}  // namespace

ExportSource exportSource(ShownSurface& shown) {
  const SurfaceModel& model = shown.measured();
  return {.measurement = shown.measurement(),
          .heights = model.shown(),
          .limits = shown.crop(),
          .automaticScale = model.autoScale(),
          .heightWords = shown.heightWords(),
          .section = std::nullopt};
}

std::optional<PinPair> sectionBetween(const ExportSource& source, const glm::dvec2& from,
                                      const glm::dvec2& to) {
  const auto pointAt = [&](const glm::dvec2& place) -> std::optional<GridPoint> {
    const ResHeader& header = source.measurement.header;
    const auto column = nearestPoint(place.x, header.pixelSizeX, source.heights->width());
    const auto row = nearestPoint(place.y, header.pixelSizeY, source.heights->height());
    if (!column || !row) return std::nullopt;
    return GridPoint{*column, *row};
  };
  const auto a = pointAt(from);
  const auto b = pointAt(to);
  if (!a || !b) return std::nullopt;
  return pinsOn(*a, *b);
}

}  // namespace morvane
