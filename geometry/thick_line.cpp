#include "geometry/thick_line.h"

#include <array>
#include <cmath>
#include <glm/geometric.hpp>
#include <numbers>

namespace morvane {
namespace {

/// Corners of the outline of a segment with round ends, counter-clockwise.
constexpr std::size_t kCorners = 18;

/// `point` or, if it is behind the eye, the last point in front of it on the way from `other`.
glm::vec4 inFront(const glm::vec4& point, const glm::vec4& other) {
  constexpr float kNearest = 1e-3F;
  if (point.w >= kNearest) return point;
  return other + (point - other) * ((other.w - kNearest) / (other.w - point.w));
}

}  // namespace

std::vector<glm::vec2> thickLines(std::span<const glm::vec4> ends, glm::vec2 size, float width) {
  std::vector<glm::vec2> triangles;
  const glm::vec2 pixel = 2.0F / size;
  for (std::size_t i = 0; i + 1 < ends.size(); i += 2) {
    if (ends[i].w <= 0.0F && ends[i + 1].w <= 0.0F) continue;
    const glm::vec4 a = inFront(ends[i], ends[i + 1]);
    const glm::vec4 b = inFront(ends[i + 1], ends[i]);
    const glm::vec2 from = glm::vec2(a) / a.w;
    const glm::vec2 to = glm::vec2(b) / b.w;
    const glm::vec2 way = (to - from) / pixel;
    const float direction = std::atan2(way.y, way.x);
    std::array<glm::vec2, kCorners> outline;
    for (std::size_t corner = 0; corner < kCorners; ++corner) {
      constexpr std::size_t kHalf = kCorners / 2;
      const bool atEnd = corner < kHalf;
      const float turn = static_cast<float>(corner % kHalf) / (kHalf - 1) - (atEnd ? 0.5F : -0.5F);
      const float angle = direction + turn * std::numbers::pi_v<float>;
      const glm::vec2 out = glm::vec2(std::cos(angle), std::sin(angle)) * (width / 2.0F);
      outline[corner] = (atEnd ? to : from) + out * pixel;
    }
    for (std::size_t corner = 1; corner + 1 < kCorners; ++corner) {
      triangles.insert(triangles.end(), {outline[0], outline[corner], outline[corner + 1]});
    }
  }
  return triangles;
}

}  // namespace morvane
