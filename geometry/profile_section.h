// The section along the profile line: the surface's heights sampled from one pin to the other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <glm/vec2.hpp>
#include <glm/vec3.hpp>
#include <vector>

#include "geometry/pin_motion.h"
#include "resfile/height_grid.h"
#include "surface/surface_limits.h"

namespace morvane {

/// One sampled line. Heights are in single precision and the unit of the grid.
struct ProfileSection {
  float lineLength = 0.0F;  ///< pin to pin, model units
  /// One sample per grid step of length: distance along the line in model units, height, 0. The
  /// height is NaN where the surface has missing points: a gap.
  std::vector<glm::vec3> samples;
  std::size_t drawn = 0;  ///< number of samples with a height
  /// Extremes of the samples. Kept: they include the grid's first finite height, which need not be
  /// on the line. 0 when the grid has no finite height.
  float sampleMin = 0.0F;
  float sampleMax = 0.0F;
  /// Extremes of the samples with a height; 0 when there are none.
  float localMin = 0.0F;
  float localMax = 0.0F;
};

/// The distance of two pins in x and y, model units.
float lineLength(const PinPair& pins);

/// A column and a row of a grid; they may lie outside it.
struct GridPoint {
  std::int64_t column = 0;
  std::int64_t row = 0;
};

/// Where the samples of a section are: `count` equal steps from one grid point to another, without
/// the end itself.
struct SampleLine {
  GridPoint start;
  GridPoint way;  ///< to the end, in columns and rows
  std::size_t count = 0;

  /// Columns and rows from one sample to the next; `count` must not be 0.
  [[nodiscard]] glm::vec2 step() const {
    return glm::vec2(way.column, way.row) / static_cast<float>(count);
  }
  /// Column and row of sample `i`, with fractions.
  [[nodiscard]] glm::dvec2 place(std::size_t i) const {
    return glm::dvec2(start.column, start.row) + glm::dvec2(step() * static_cast<float>(i));
  }
};

/// The samples of `sampleProfile` on a grid of this size.
SampleLine sampleLine(const GridSize& grid, const PinPair& pins);

/// Pins on two grid points.
PinPair pinsOn(const GridPoint& a, const GridPoint& b);

/// Samples `grid` along the line from `pins.a` to `pins.b`, which are first clamped to the grid. A
/// sample is the mean of two linear interpolations in the direction of travel: toward the next row
/// and toward the next column. Points outside the grid, such as those in the step beyond the last
/// column, have the height of the nearest column or row. Pins less than half a step apart give no
/// samples. The heights are clamped by `crop`. Throws std::bad_alloc when there is not enough
/// memory for the samples.
ProfileSection sampleProfile(const HeightGrid& grid, const PinPair& pins, const Crop& crop);

/// The indices of the samples to draw, in order. If there are more samples than a picture can show,
/// they are split into many equal parts, and only the lowest sample, the highest sample and a gap
/// of each part are drawn.
std::vector<std::size_t> drawnSamples(const ProfileSection& section);

/// The true distance between neighbouring samples of a line, in the unit of the two pitches. It is
/// the pitch itself if both are equal.
double pixelSizeAlong(const PinPair& pins, double pixelSizeX, double pixelSizeY);

/// The distance that the plot prints: samples × their spacing.
float profileDistance(const ProfileSection& section, float pixelSize);

}  // namespace morvane
