// Lines that follow the surface's heights, split into segments that every driver draws correctly.
#pragma once

#include <algorithm>
#include <cstddef>
#include <glm/geometric.hpp>
#include <glm/mat4x4.hpp>
#include <glm/vec2.hpp>
#include <glm/vec3.hpp>
#include <span>
#include <vector>

#include "geometry/pin_motion.h"
#include "geometry/profile_section.h"
#include "geometry/surface_hit.h"

namespace morvane {

/// The profile line from pin to pin along the heights of the section, in pin space, at the height
/// at which the surface is drawn. A gap is a point whose z is NaN.
std::vector<glm::vec3> sectionLine(const ProfileSection& section, const PinPair& pins,
                                   float heightToModel, float lift);

/// The outline of `region`, which lies inside the grid, along the heights as drawn, in pin space.
/// Missing points are gaps.
std::vector<glm::vec3> regionOutline(const DrawnHeights& heights, const GridRegion& region);

/// Adds the segments of a line without gaps to `pieces` as pairs of points. `pixels` are the window
/// positions of the line's points. Some drivers do not draw segments shorter than a pixel and leave
/// cracks between neighbours. So each segment but the last is at least a pixel long, and each but
/// the first starts a pixel early. Returns false and adds nothing when the whole line is shorter
/// than a pixel.
template <typename Point>
bool addPieces(std::span<const Point> line, std::span<const glm::vec2> pixels,
               std::vector<Point>& pieces) {
  std::size_t from = 0;
  for (std::size_t i = 1; i < line.size(); ++i) {
    const float length = glm::distance(pixels[from], pixels[i]);
    const bool endsLine = i + 1 == line.size() && from > 0;
    if (length < 1.0F && !endsLine) continue;
    const Point early = (line[from] - line[i]) / std::max(1.0F, length);
    pieces.push_back(from > 0 ? line[from] + early : line[from]);
    pieces.push_back(line[i]);
    from = i;
  }
  return from > 0;
}

/// The segments of a line with gaps.
struct LinePieces {
  std::vector<glm::vec3> ends;  ///< pairs of points, one pair per segment
  std::vector<glm::vec3> dots;  ///< parts between two gaps that are shorter than a pixel
};

/// The segments of `line` in a window of `width` × `height` pixels; `matrix` transforms it to clip
/// space.
LinePieces linePieces(std::span<const glm::vec3> line, const glm::mat4& matrix, int width,
                      int height);

}  // namespace morvane
