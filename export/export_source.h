// What the exports of numbers need of the surface shown.
#pragma once

#include <glm/vec2.hpp>
#include <memory>
#include <optional>
#include <string>

#include "export/csv.h"
#include "geometry/pin_motion.h"
#include "resfile/measurement.h"
#include "surface/surface_limits.h"

namespace morvane {

class ShownSurface;

struct ExportSource {
  Measurement measurement;
  std::shared_ptr<const HeightGrid> heights;  ///< as shown, but not cut by the limits
  Crop limits;
  float automaticScale = 1.0F;
  std::string heightWords{};       ///< what was done to the heights; empty for the raw ones
  std::optional<PinPair> section;  ///< the ends of the profile line
  CsvStyle csv{};
};

/// The surface shown, which must be loaded, without a section.
ExportSource exportSource(ShownSurface& shown);

/// The ends of a section between two places in mm from the first grid point: the nearest grid
/// points. Nothing if one of them is outside the grid.
std::optional<PinPair> sectionBetween(const ExportSource& source, const glm::dvec2& from,
                                      const glm::dvec2& to);

}  // namespace morvane
