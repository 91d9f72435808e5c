// Convex quads on the screen, such as the box of a text.
#pragma once

#include <array>
#include <glm/vec2.hpp>

namespace morvane {

/// Four corners in pixels, in order. A line has each of its ends twice.
using ScreenQuad = std::array<glm::vec2, 4>;

/// Whether two convex quads overlap.
bool overlap(const ScreenQuad& a, const ScreenQuad& b);

}  // namespace morvane
