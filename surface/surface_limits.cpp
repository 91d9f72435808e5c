#include "surface/surface_limits.h"

#include <algorithm>
#include <array>

#include "surface/row_bands.h"

namespace morvane {
namespace {

struct Extremes {
  float min;
  float max;
};

Extremes extremesOfRow(std::span<const double> row, Extremes found) {
  for (const double height : row) {
    if (isMissing(height)) continue;
    const auto z = static_cast<float>(height);
    found.max = std::max(found.max, z);
    found.min = std::min(found.min, z);
  }
  return found;
}

}  // namespace

SurfaceLimits findLimits(const HeightGrid& grid, const Crop& crop) {
  const auto known = grid.firstFinite();
  if (!known) return {};
  const auto first = static_cast<float>(grid.values()[*known]);

  std::array<Extremes, kWorkers> found;
  found.fill({first, first});
  if (grid.width() > 1) {
    forEachRowBand(grid.height(), [&](std::size_t band, std::size_t begin, std::size_t end) {
      Extremes extremes = found[band];
      for (std::size_t r = begin; r < end; ++r) {
        extremes = extremesOfRow(grid.row(r + 1).subspan(1), extremes);
      }
      found[band] = extremes;
    });
  }

  SurfaceLimits limits{first, first, crop.clamp(first), crop.clamp(first)};
  for (const Extremes& extremes : found) {
    limits.trueMin = std::min(limits.trueMin, extremes.min);
    limits.trueMax = std::max(limits.trueMax, extremes.max);
  }
  // Each displayed limit is clamped on its own side only, and only if it differs from the first
  // height.
  if (limits.trueMax > first)
    limits.zMax = crop.on ? std::min(limits.trueMax, crop.max) : limits.trueMax;
  if (limits.trueMin < first)
    limits.zMin = crop.on ? std::max(limits.trueMin, crop.min) : limits.trueMin;
  return limits;
}

}  // namespace morvane
