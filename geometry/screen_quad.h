// Convex pieces of the screen, such as the room of a text.
#pragma once

#include <array>
#include <glm/vec2.hpp>

namespace morvane {

/// Four corners in pixels, in turn; a line has each of its ends twice.
using ScreenQuad = std::array<glm::vec2, 4>;

/// Whether two convex quads have a point in common.
bool overlap(const ScreenQuad& a, const ScreenQuad& b);

}  // namespace morvane
