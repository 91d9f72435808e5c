// Thick lines as triangles, for widths that a driver's own lines need not have.
#pragma once

#include <glm/vec2.hpp>
#include <glm/vec4.hpp>
#include <span>
#include <vector>

namespace morvane {

/// The triangles, in device coordinates, of segments that are `width` pixels wide, with round ends,
/// in a picture of `size` pixels. `ends` are pairs of points in clip space; of a segment that
/// begins behind the eye the part in front is taken.
std::vector<glm::vec2> thickLines(std::span<const glm::vec4> ends, glm::vec2 size, float width);

}  // namespace morvane
