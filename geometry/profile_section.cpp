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
constexpr std::size_t kMostSamples = 20'000'000;

struct GridPoint {
  std::int64_t column;
  std::int64_t row;
};

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
  Sampler(const HeightGrid& grid, const PinPair& pins, std::size_t count)
      : grid_(grid),
        width_(static_cast<std::int64_t>(grid.width())),
        height_(static_cast<std::int64_t>(grid.height())),
        start_(gridPointOf(pins.a)) {
    const GridPoint end = gridPointOf(pins.b);
    const std::int64_t rows = end.row - start_.row;
    const std::int64_t columns = end.column - start_.column;
    rowStep_ = static_cast<float>(rows) / static_cast<float>(count);
    columnStep_ = static_cast<float>(columns) / static_cast<float>(count);
    rowSign_ = sign(rows);
    columnSign_ = sign(columns);
    startMinusEnd_ = -(rows * width_ + columns);
  }

  /// The height of sample `i`, NaN for a gap.
  [[nodiscard]] float height(std::size_t i) const {
    const Advance rows(rowStep_, i);
    const Advance columns(columnStep_, i);
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
  float rowStep_ = 0.0F;  // per sample
  float columnStep_ = 0.0F;
  std::int64_t rowSign_ = 0;
  std::int64_t columnSign_ = 0;
  std::int64_t startMinusEnd_ = 0;  // difference of the element indices of both ends
};

float firstFiniteHeight(const HeightGrid& grid) {
  const auto values = grid.values();
  const auto found =
      std::find_if(values.begin(), values.end(), [](double h) { return !isMissing(h); });
  return found == values.end() ? 0.0F : static_cast<float>(*found);
}

float clipped(float height, const ProfileClip& clip) {
  if (!clip.on) return height;
  if (height > clip.high) return clip.high;
  return height < clip.low ? clip.low : height;
}

}  // namespace

float lineLength(const PinPair& pins) { return glm::length(glm::vec2(pins.b) - glm::vec2(pins.a)); }

ProfileSection sampleProfile(const HeightGrid& grid, const PinPair& pins, const ProfileClip& clip) {
  ProfileSection section;
  if (grid.count() == 0) return section;
  const PinPair ends = clampedToGrid(pins, {grid.width(), grid.height()});
  section.lineLength = lineLength(ends);
  section.sampleMin = section.sampleMax = firstFiniteHeight(grid);
  const auto count = static_cast<std::size_t>(std::lround(section.lineLength * kPointsPerUnit));
  if (count == 0) return section;
  if (count > kMostSamples) throw std::bad_alloc();

  section.samples.reserve(count);
  const Sampler sampler(grid, ends, count);
  for (std::size_t i = 0; i < count; ++i) {
    const float height = clipped(sampler.height(i), clip);
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
  constexpr std::size_t kMost = 65536;
  const auto& samples = section.samples;
  const std::size_t share = (samples.size() + kMost - 1) / kMost;
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

float pixelSizeAlong(const PinPair& pins, double pixelSizeX, double pixelSizeY) {
  const glm::dvec2 way = glm::dvec2(glm::vec2(pins.b)) - glm::dvec2(glm::vec2(pins.a));
  const double length = glm::length(way);
  if (pixelSizeX == pixelSizeY || !(length > 0.0)) return static_cast<float>(pixelSizeX);
  return static_cast<float>(glm::length(way * glm::dvec2(pixelSizeX, pixelSizeY)) / length);
}

float profileDistance(const ProfileSection& section, float pixelSize) {
  return static_cast<float>(section.samples.size()) * pixelSize;
}

}  // namespace morvane
