// The section under the profile line: the surface's heights sampled from one pin to the other.
#pragma once

#include <cstddef>
#include <glm/vec3.hpp>
#include <vector>

#include "geometry/pin_motion.h"
#include "resfile/height_grid.h"

namespace morvane {

/// The limits that sampled heights are clipped to while `on`, those of the heat map.
struct ProfileClip {
  bool on = false;
  float low = 0.0F;
  float high = 0.0F;
};

/// One sampled line. Heights are in single precision and the unit of the grid.
struct ProfileSection {
  float lineLength = 0.0F;  ///< pin to pin, model units
  /// One sample per grid step of length: distance along the line in model units, height, 0. The
  /// height is NaN where the surface has missing points: a gap.
  std::vector<glm::vec3> samples;
  std::size_t drawn = 0;  ///< how many samples have a height
  /// Extremes of the samples and, kept, of the grid's first finite height, where the line may not
  /// pass at all. 0 when the grid has none.
  float sampleMin = 0.0F;
  float sampleMax = 0.0F;
  /// Extremes of the samples that have a height; 0 when none has.
  float localMin = 0.0F;
  float localMax = 0.0F;
};

/// The distance of two pins in x and y, model units.
float lineLength(const PinPair& pins);

/// Samples `grid` along the line from `pins.a` to `pins.b`, which are first clamped to the grid.
/// A sample is the mean of two interpolations, one toward the next row and one toward the next
/// column in the direction of travel. A point outside the grid, such as those of the step beyond
/// the last column, has the height of the nearest column or row. Pins less than half a step apart
/// have no samples. Throws std::bad_alloc where memory does not hold the samples, or would be
/// filled by them.
ProfileSection sampleProfile(const HeightGrid& grid, const PinPair& pins, const ProfileClip& clip);

/// Which samples a curve through the section needs, in order: all of them, or, of more than any
/// picture can show, the lowest, the highest and a gap of each of many equal shares.
std::vector<std::size_t> drawnSamples(const ProfileSection& section);

/// The real distance between neighbouring samples of a line, in the unit of the two pitches; the
/// pitch itself where both are the same.
float pixelSizeAlong(const PinPair& pins, double pixelSizeX, double pixelSizeY);

/// The distance that the plot prints: samples × their spacing.
float profileDistance(const ProfileSection& section, float pixelSize);

}  // namespace morvane
