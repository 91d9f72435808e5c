#include "geometry/grid_tool.h"

#include <glm/common.hpp>
#include <utility>

namespace morvane {
namespace {

constexpr glm::vec4 kCornerColour{1.0F, 0.0F, 1.0F, 1.0F};
constexpr glm::vec4 kBoxColour{1.0F, 1.0F, 1.0F, 0.5F};
// Low, as the top face of a high box would seem to cover more of the surface than the box marks.
constexpr float kBoxHalfHeight = 0.01F;

}  // namespace

void GridTool::setGrid(const GridSize& grid) {
  if (placed_ && grid.width == grid_.width && grid.height == grid_.height) return;
  grid_ = grid;
  if (std::exchange(placed_, true)) {
    placePins(corners_, clampedToGrid(placesOf(corners_), grid));
    return;
  }
  placePins(corners_, gridCorners(grid));
  for (Pin& corner : corners_) {
    corner.halfExtents = kCornerHalfExtents;
    corner.colour = kCornerColour;
  }
}

void GridTool::move(glm::vec2 motion) {
  grabbed_->position = movePin(grabbed_->position, motion, grid_);
}

Pin GridTool::box() const {
  const auto& [a, b] = placesOf(corners_);
  return {.position = {(a.x + b.x) / 2.0F, (a.y + b.y) / 2.0F, a.z},
          .halfExtents = {glm::abs(b.x - a.x) / 2.0F, glm::abs(b.y - a.y) / 2.0F, kBoxHalfHeight},
          .colour = kBoxColour};
}

}  // namespace morvane
