#include "geometry/surface_hit.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <glm/geometric.hpp>
#include <glm/matrix.hpp>
#include <limits>

#include "surface/mesh.h"

namespace morvane {
namespace {

// Tolerance at the rim of the surface, in grid steps, for rounding errors of single precision.
constexpr double kRim = 0.001;

/// A ray over the grid: x in columns, y in rows, z in model units; `t` in model units.
struct Line {
  glm::dvec3 origin;
  glm::dvec3 direction;
  [[nodiscard]] glm::dvec3 at(double t) const { return origin + direction * t; }
};

struct Span {
  double from;
  double to;
};

/// One triangle of a cell as a plane over it, u columns and v rows from the cell's first point.
struct Facet {
  double base;
  double perColumn;
  double perRow;
  [[nodiscard]] bool there() const { return !std::isnan(perColumn) && !std::isnan(perRow); }
};

Line overGrid(const Ray& ray, const glm::mat4& overlay) {
  const glm::dmat4 back = glm::inverse(glm::dmat4(overlay));
  const double points = kPointsPerUnit;
  const glm::dvec3 toGrid(points, points, 1.0);
  return {glm::dvec3(back * glm::dvec4(glm::dvec3(ray.origin), 1.0)) * toGrid,
          glm::dvec3(back * glm::dvec4(glm::dvec3(ray.direction), 0.0)) * toGrid};
}

double toModel(const DrawnHeights& heights, float drawn) {
  return double{drawn} * heightToModel(heights.zScale) + heights.lift;
}

bool isFinite(const glm::dvec3& v) {
  return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

/// Clips `span` to the part in which one coordinate is inside the `cells` of its axis. False if
/// nothing is left.
bool cutTo(std::int64_t cells, double origin, double direction, Span& span) {
  const double least = -kRim;
  const double most = static_cast<double>(cells) + kRim;
  if (direction == 0.0) return origin >= least && origin <= most;
  const double low = (least - origin) / direction;
  const double high = (most - origin) / direction;
  span.from = std::max(span.from, std::min(low, high));
  span.to = std::min(span.to, std::max(low, high));
  return span.from <= span.to;
}

/// Steps along a line from cell to cell of one axis.
struct AxisWalk {
  AxisWalk(double o, double d, double start, std::int64_t cells)
      : origin(o), direction(d), step(d > 0.0 ? 1 : -1), count(cells) {
    cell = std::clamp<std::int64_t>(static_cast<std::int64_t>(std::floor(o + d * start)), 0,
                                    cells - 1);
  }
  /// The parameter at which the line leaves the current cell.
  [[nodiscard]] double exit() const {
    const bool last = cell + step < 0 || cell + step >= count;
    if (direction == 0.0 || last) return std::numeric_limits<double>::infinity();
    return (static_cast<double>(step > 0 ? cell + 1 : cell) - origin) / direction;
  }
  double origin;
  double direction;
  std::int64_t step;
  std::int64_t count;
  std::int64_t cell = 0;
};

/// Follows a line over the cells and tracks on which side of the surface it is.
class SurfaceWalk {
 public:
  SurfaceWalk(const DrawnHeights& heights, const Line& line) : heights_(heights), line_(line) {}

  /// The parameter of the first crossing.
  std::optional<double> firstCrossing() {
    const HeightGrid& grid = heights_.grid;
    if (cellCount(grid) == 0) return std::nullopt;
    const auto columns = static_cast<std::int64_t>(grid.width() - 1);
    const auto rows = static_cast<std::int64_t>(grid.height() - 1);
    Span span = {0.0, kRayLength};
    if (!cutTo(columns, line_.origin.x, line_.direction.x, span) ||
        !cutTo(rows, line_.origin.y, line_.direction.y, span)) {
      return std::nullopt;
    }
    AxisWalk column(line_.origin.x, line_.direction.x, span.from, columns);
    AxisWalk row(line_.origin.y, line_.direction.y, span.from, rows);
    for (double t = span.from;;) {
      const double exit = std::min(column.exit(), row.exit());
      const double next = std::clamp(exit, t, span.to);
      if (const auto found = crossingInCell(column.cell, row.cell, {t, next})) return found;
      if (exit >= span.to) return std::nullopt;
      AxisWalk& crossed = column.exit() < row.exit() ? column : row;
      crossed.cell += crossed.step;
      t = next;
    }
  }

 private:
  [[nodiscard]] double heightAt(std::int64_t column, std::int64_t row) const {
    return modelHeight(heights_, static_cast<std::size_t>(row), static_cast<std::size_t>(column));
  }

  std::optional<double> crossingInCell(std::int64_t column, std::int64_t row, Span span) {
    const double near = heightAt(column, row);
    const double across = heightAt(column + 1, row);
    const double below = heightAt(column, row + 1);
    const double far = heightAt(column + 1, row + 1);
    corner_ = {static_cast<double>(column), static_cast<double>(row)};
    // The two triangles of a cell meet on the diagonal from its first point to the opposite one.
    const Facet lower = {near, far - below, below - near};
    const Facet upper = {near, across - near, far - across};
    const double d0 = aboveDiagonal(span.from);
    const double d1 = aboveDiagonal(span.to);
    if ((d0 < 0.0) == (d1 < 0.0)) return crossingOf(d0 < 0.0 ? lower : upper, span);
    const double middle =
        std::clamp(span.from + (span.to - span.from) * d0 / (d0 - d1), span.from, span.to);
    const auto first = crossingOf(d0 < 0.0 ? lower : upper, {span.from, middle});
    return first ? first : crossingOf(d0 < 0.0 ? upper : lower, {middle, span.to});
  }

  /// Positive over the upper triangle, negative over the lower.
  [[nodiscard]] double aboveDiagonal(double t) const {
    const glm::dvec3 p = line_.at(t);
    return (p.x - corner_.x) - (p.y - corner_.y);
  }

  /// The height of the line above the plane of a facet.
  [[nodiscard]] double clearance(const Facet& facet, double t) const {
    const glm::dvec3 p = line_.at(t);
    return p.z -
           (facet.base + facet.perColumn * (p.x - corner_.x) + facet.perRow * (p.y - corner_.y));
  }

  std::optional<double> crossingOf(const Facet& facet, Span span) {
    if (!facet.there()) {
      above_.reset();
      return std::nullopt;
    }
    const double from = clearance(facet, span.from);
    const double to = clearance(facet, span.to);
    if (!above_ && from == 0.0) return span.from;
    // The side is carried from facet to facet, so that a line cannot slip through the edge between
    // two.
    const bool wasAbove = above_.value_or(from > 0.0);
    above_ = to > 0.0;
    if (*above_ == wasAbove) return std::nullopt;
    if (from == to) return span.from;
    return std::clamp(span.from + (span.to - span.from) * from / (from - to), span.from, span.to);
  }

  const DrawnHeights& heights_;
  const Line& line_;
  glm::dvec2 corner_{0.0};     // first point of the current cell
  std::optional<bool> above_;  // side of the surface; unknown at the rim and beside holes
};

std::optional<double> meanPlaneCrossing(const DrawnHeights& heights, const Line& line) {
  const double t =
      (toModel(heights, heights.crop.clamp(heights.mean)) - line.origin.z) / line.direction.z;
  if (!(t >= 0.0 && t <= kRayLength)) return std::nullopt;
  return t;
}

}  // namespace

double modelHeight(const DrawnHeights& heights, std::size_t row, std::size_t column) {
  return toModel(heights, drawnHeight(heights.grid.row(row)[column], heights.crop));
}

std::optional<SurfaceHit> surfaceHit(const DrawnHeights& heights, const Ray& ray,
                                     const glm::mat4& overlay) {
  const Line line = overGrid(ray, overlay);
  if (!isFinite(line.origin) || !isFinite(line.direction)) return std::nullopt;
  const auto onSurface = SurfaceWalk(heights, line).firstCrossing();
  const auto t = onSurface ? onSurface : meanPlaneCrossing(heights, line);
  if (!t) return std::nullopt;
  const double points = kPointsPerUnit;
  const glm::vec3 point(line.at(*t) / glm::dvec3(points, points, 1.0));
  return SurfaceHit{point, onSurface.has_value()};
}

}  // namespace morvane
