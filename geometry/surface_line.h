// Lines that follow the surface's heights, made of pieces that every driver draws.
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

/// The profile line from pin to pin along the heights of the section, in the space of the pins, as
/// high as the surface is drawn. A gap is a point whose z is NaN.
std::vector<glm::vec3> sectionLine(const ProfileSection& section, const PinPair& pins,
                                   float heightToModel, float lift);

/// Once round the edge of `region`, which lies inside the grid, along the heights as drawn; in the
/// space of the pins, missing points as gaps.
std::vector<glm::vec3> regionOutline(const DrawnHeights& heights, const GridRegion& region);

/// Adds to `pieces`, pairs of points, what is drawn of a line without gaps whose points stand at
/// `pixels` in the window. With some drivers pieces shorter than a pixel vanish and neighbours
/// leave cracks, so each but the last is at least a pixel long, and each but the first begins a
/// pixel early. False, and nothing is added, when the whole line is shorter than a pixel.
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

/// What is drawn of a line with gaps.
struct LinePieces {
  std::vector<glm::vec3> ends;  ///< pairs of points, a piece between each two
  std::vector<glm::vec3> dots;  ///< what lies between two gaps and is shorter than a pixel
};

/// The pieces of `line` for a window of `width` × `height` pixels in which `matrix` places it.
LinePieces linePieces(std::span<const glm::vec3> line, const glm::mat4& matrix, int width,
                      int height);

}  // namespace morvane
