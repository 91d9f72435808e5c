#include "geometry/pin_motion.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "surface/mesh.h"

namespace morvane {
namespace {

constexpr std::size_t kWideGrid = 755;  // points
constexpr float kPinZ = 0.05F;

/// The largest coordinates of a pin. Kept: x is limited by the width, y by the height minus one.
glm::vec2 farEdge(const GridSize& grid) {
  return {modelUnits(grid.width), modelUnits(grid.height > 0 ? grid.height - 1 : 0)};
}

float clamped(float value, float most) {
  if (value > most) return most;
  return value > 0.0F ? value : 0.0F;
}

float numberOrZero(float value) { return std::isnan(value) ? 0.0F : value; }

bool inside(float value, float most) { return value > 0.0F && value < most; }

/// The first grid point and the number of grid points between two coordinates of one axis, each
/// rounded to a point.
std::pair<std::size_t, std::size_t> pointsBetween(float a, float b, std::size_t count) {
  const auto point = [count](float coordinate) {
    const float place =
        std::clamp(numberOrZero(coordinate) * kPointsPerUnit, 0.0F, static_cast<float>(count - 1));
    return static_cast<std::size_t>(std::lround(place));
  };
  const std::size_t first = std::min(std::min(point(a), point(b)), count - 2);
  const std::size_t last = std::max(std::max(point(a), point(b)), first + 1);
  return {first, last - first + 1};
}

}  // namespace

PinSize pinSize(std::size_t gridWidth) {
  if (gridWidth < kWideGrid) return {{0.0075F, 0.0075F, 0.1F}, 0.1F};
  return {{0.05F, 0.05F, 0.1F}, 0.5F};
}

PinPair profilePins(const GridSize& grid) {
  return {{0.0F, 0.0F, kPinZ}, {0.0F, farEdge(grid).y, kPinZ}};
}

PinPair gridCorners(const GridSize& grid) {
  return {{0.0F, 0.0F, kPinZ}, {modelUnits(grid.width), modelUnits(grid.height), kPinZ}};
}

glm::vec3 clampedToGrid(const glm::vec3& position, const GridSize& grid) {
  const glm::vec2 edge = farEdge(grid);
  return {clamped(position.x, edge.x), clamped(position.y, edge.y), position.z};
}

PinPair clampedToGrid(const PinPair& pins, const GridSize& grid) {
  return {clampedToGrid(pins.a, grid), clampedToGrid(pins.b, grid)};
}

glm::vec3 movePin(const glm::vec3& position, glm::vec2 motion, const GridSize& grid) {
  const glm::vec3 step(numberOrZero(motion.x), numberOrZero(motion.y), 0.0F);
  return clampedToGrid(position + step, grid);
}

PinPair movePins(const PinPair& pins, glm::vec2 motion, const GridSize& grid) {
  const glm::vec2 edge = farEdge(grid);
  for (int axis = 0; axis < 2; ++axis) {
    const bool free = inside(pins.a[axis] + motion[axis], edge[axis]) &&
                      inside(pins.b[axis] + motion[axis], edge[axis]);
    if (!free) motion[axis] = 0.0F;
  }
  return {movePin(pins.a, motion, grid), movePin(pins.b, motion, grid)};
}

GridRegion regionBetween(const PinPair& corners, const GridSize& grid) {
  const auto [column, width] = pointsBetween(corners.a.x, corners.b.x, grid.width);
  const auto [row, height] = pointsBetween(corners.a.y, corners.b.y, grid.height);
  return {column, row, width, height};
}

}  // namespace morvane
