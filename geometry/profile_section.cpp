#include "geometry/profile_section.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <glm/geometric.hpp>
#include <limits>
#include <new>

#include "surface/mesh.h"

namespace morvane {
namespace {

// Far more than any measured line has. The header of a damaged file could ask for a line that fills
// the memory.
constexpr std::size_t kMaxSamples = 20'000'000;

std::int64_t sign(std::int64_t value) { return (value > 0) - (value < 0); }

/// The grid point under a pin. The product is computed in single precision before it is truncated.
GridPoint gridPointOf(const glm::vec3& pin) {
  return {static_cast<std::int64_t>(pin.x * kPointsPerUnit),
          static_cast<std::int64_t>(pin.y * kPointsPerUnit)};
}

/// The position of a sample along one grid axis: `whole` signed steps in the direction of travel,
/// plus the absolute fraction of a step.
struct Advance {
  Advance(float perSample, std::size_t sample) {
    const float way = perSample * static_cast<float>(sample);
    const float signedFraction = std::fmod(way, 1.0F);
    whole = static_cast<std::int64_t>(way - signedFraction);
    fraction = std::abs(signedFraction);
  }
  std::int64_t whole;
  float fraction;
};

/// Interpolates from one height to the next. At a fraction of 0 the next one is ignored, even if it
/// is missing.
float interpolated(float from, float to, float fraction) {
  return fraction > 0.0F ? from + (to - from) * fraction : from;
}

/// Samples heights along a line over a non-empty grid.
class Sampler {
 public:
  Sampler(const HeightGrid& grid, const SampleLine& line)
      : grid_(grid),
        width_(static_cast<std::int64_t>(grid.width())),
        height_(static_cast<std::int64_t>(grid.height())),
        start_(line.start),
        step_(line.step()),
        rowSign_(sign(line.way.row)),
        columnSign_(sign(line.way.column)),
        startMinusEnd_(-(line.way.row * width_ + line.way.column)) {}

  /// The height of sample `i`, NaN for a gap.
  [[nodiscard]] float height(std::size_t i) const {
    const Advance rows(step_.y, i);
    const Advance columns(step_.x, i);
    const GridPoint own = {start_.column + columns.whole, start_.row + rows.whole};
    const float here = at(own);
    // Kept: this ignores the next row's height on lines that run toward lower rows.
    const bool rowCounts = columns.whole + (rows.whole + rowSign_) * width_ - startMinusEnd_ >= 0;
    const float nextRow = rowCounts ? at({own.column, own.row + rowSign_}) : here;
    const float nextColumn = at({own.column + columnSign_, own.row});
    const float a = interpolated(here, nextRow, rows.fraction);
    const float b = interpolated(here, nextColumn, columns.fraction);
    const float mean = a / 2.0F + b / 2.0F;
    return isMissing(mean) ? std::numeric_limits<float>::quiet_NaN() : mean;
  }

 private:
  /// A line may start one step beyond the last column. Points outside have the height of the edge.
  [[nodiscard]] float at(GridPoint point) const {
    const std::int64_t column = std::clamp<std::int64_t>(point.column, 0, width_ - 1);
    const std::int64_t row = std::clamp<std::int64_t>(point.row, 0, height_ - 1);
    return static_cast<float>(grid_.values()[static_cast<std::size_t>(row * width_ + column)]);
  }

  const HeightGrid& grid_;
  std::int64_t width_;
  std::int64_t height_;
  GridPoint start_;
  glm::vec2 step_;
  std::int64_t rowSign_;
  std::int64_t columnSign_;
  std::int64_t startMinusEnd_;  // difference of the element indices of both ends
};

}  // namespace

float lineLength(const PinPair& pins) { return glm::length(glm::vec2(pins.b) - glm::vec2(pins.a)); }

SampleLine sampleLine(const GridSize& grid, const PinPair& pins) {
  const PinPair ends = clampedToGrid(pins, grid);
  const GridPoint start = gridPointOf(ends.a);
  const GridPoint end = gridPointOf(ends.b);
  const auto count = static_cast<std::size_t>(std::lround(lineLength(ends) * kPointsPerUnit));
  return {start, {end.column - start.column, end.row - start.row}, count};
}

PinPair pinsOn(const GridPoint& a, const GridPoint& b) {
  const auto coordinate = [](std::int64_t point) {
    float place = static_cast<float>(point) / kPointsPerUnit;
    // The quotient may be rounded to just below the point.
    while (static_cast<std::int64_t>(place * kPointsPerUnit) < point) {
      place = std::nextafter(place, std::numeric_limits<float>::infinity());
    }
    return place;
  };
  return {{coordinate(a.column), coordinate(a.row), 0.0F},
          {coordinate(b.column), coordinate(b.row), 0.0F}};
}

ProfileSection sampleProfile(const HeightGrid& grid, const PinPair& pins, const Crop& crop) {
  ProfileSection section;
  if (grid.count() == 0) return section;
  const GridSize size = {grid.width(), grid.height()};
  section.lineLength = lineLength(clampedToGrid(pins, size));
  const auto known = grid.firstFinite();
  section.sampleMin = section.sampleMax = known ? static_cast<float>(grid.values()[*known]) : 0.0F;
  const SampleLine line = sampleLine(size, pins);
  if (line.count == 0) return section;
  if (line.count > kMaxSamples) throw std::bad_alloc();

  section.samples.reserve(line.count);
  const Sampler sampler(grid, line);
  for (std::size_t i = 0; i < line.count; ++i) {
    const float height = crop.clamp(sampler.height(i));
    section.samples.emplace_back(static_cast<float>(i) / kPointsPerUnit, height, 0.0F);
    if (std::isnan(height)) continue;
    const bool first = section.drawn++ == 0;
    section.localMin = first ? height : std::min(section.localMin, height);
    section.localMax = first ? height : std::max(section.localMax, height);
  }
  if (section.drawn > 0) {
    section.sampleMin = std::min(section.sampleMin, section.localMin);
    section.sampleMax = std::max(section.sampleMax, section.localMax);
  }
  return section;
}

std::vector<std::size_t> drawnSamples(const ProfileSection& section) {
  constexpr std::size_t kMax = 65536;
  const auto& samples = section.samples;
  const std::size_t share = (samples.size() + kMax - 1) / kMax;
  std::vector<std::size_t> drawn;
  for (std::size_t first = 0; first < samples.size(); first += share) {
    const std::size_t end = std::min(first + share, samples.size());
    // The samples that represent the part: its lowest, its highest, and a gap.
    std::array<std::size_t, 3> kept = {first, first, first};
    for (std::size_t i = first; i < end; ++i) {
      const float height = samples[i].y;
      if (std::isnan(height)) {
        kept[2] = i;
        continue;
      }
      if (!(height >= samples[kept[0]].y)) kept[0] = i;
      if (!(height <= samples[kept[1]].y)) kept[1] = i;
    }
    std::sort(kept.begin(), kept.end());
    drawn.insert(drawn.end(), kept.begin(), std::unique(kept.begin(), kept.end()));
  }
  return drawn;
}

double pixelSizeAlong(const PinPair& pins, double pixelSizeX, double pixelSizeY) {
  const glm::dvec2 way = glm::dvec2(glm::vec2(pins.b)) - glm::dvec2(glm::vec2(pins.a));
  const double length = glm::length(way);
  if (pixelSizeX == pixelSizeY || !(length > 0.0)) return pixelSizeX;
  return glm::length(way * glm::dvec2(pixelSizeX, pixelSizeY)) / length;
}

float profileDistance(const ProfileSection& section, float pixelSize) {
  return static_cast<float>(section.samples.size()) * pixelSize;
}

}  // namespace morvane
