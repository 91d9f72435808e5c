#include "geometry/screen_quad.h"

#include <algorithm>
#include <glm/geometric.hpp>

namespace morvane {
namespace {

/// Whether a side of `a` separates it from `b` (separating axis theorem).
bool sideParts(const ScreenQuad& a, const ScreenQuad& b) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    const glm::vec2 side = a[(i + 1) % a.size()] - a[i];
    const glm::vec2 normal(side.y, -side.x);
    const auto along = [&](const glm::vec2& point) { return glm::dot(point, normal); };
    const auto [aLow, aHigh] = std::ranges::minmax(a, {}, along);
    const auto [bLow, bHigh] = std::ranges::minmax(b, {}, along);
    if (along(aHigh) < along(bLow) || along(bHigh) < along(aLow)) return true;
  }
  return false;
}

}  // namespace

bool overlap(const ScreenQuad& a, const ScreenQuad& b) {
  return !sideParts(a, b) && !sideParts(b, a);
}

}  // namespace morvane
