// Sizes, initial places and motions of the pins: the ends of the profile line and the corners of
// the grid box.
#pragma once

#include <cstddef>
#include <glm/vec2.hpp>
#include <glm/vec3.hpp>

#include "resfile/grid_region.h"

namespace morvane {

/// Columns and rows of the height grid under the pins.
struct GridSize {
  std::size_t width = 0;
  std::size_t height = 0;
};

struct PinSize {
  glm::vec3 halfExtents;  ///< of the box, model units
  float companion;        ///< the matching marker scale; Kept: not used
};

/// The centres of two pins in model units; x along the columns and y along the rows of the grid.
struct PinPair {
  glm::vec3 a{0.0F};
  glm::vec3 b{0.0F};
};

/// The grid's corner pins are thinner than any profile pin.
inline constexpr glm::vec3 kCornerHalfExtents{0.01F, 0.01F, 0.1F};

/// The size of profile pins. They are thin on a narrow grid, so that they do not hide many points.
PinSize pinSize(std::size_t gridWidth);

/// The initial places of the profile pins: both ends of the first column.
PinPair profilePins(const GridSize& grid);
/// The initial places of the corner pins: the origin and the far corner.
PinPair gridCorners(const GridSize& grid);

/// Clamps `position` to the grid: x up to one step beyond the last column, y up to the last row. A
/// NaN coordinate becomes 0.
glm::vec3 clampedToGrid(const glm::vec3& position, const GridSize& grid);
PinPair clampedToGrid(const PinPair& pins, const GridSize& grid);

/// `position` moved by `motion` in model units, then clamped. z does not change. NaN components of
/// the motion are ignored.
glm::vec3 movePin(const glm::vec3& position, glm::vec2 motion, const GridSize& grid);

/// Moves both pins together, then clamps them. If either would not be strictly inside the grid
/// along an axis, neither moves along that axis, so the line slides along the edge.
PinPair movePins(const PinPair& pins, glm::vec2 motion, const GridSize& grid);

/// The grid points between two corners, inclusive, at least 2 × 2 of them. `grid` must have at
/// least 2 × 2 points.
GridRegion regionBetween(const PinPair& corners, const GridSize& grid);

/// The pins with their places swapped.
inline PinPair swapped(const PinPair& pins) { return {pins.b, pins.a}; }

}  // namespace morvane
