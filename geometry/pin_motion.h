// Where pins may stand: sizes, first places and motions of the ends of the profile line and the
// corners of the grid box.
#pragma once

#include <cstddef>
#include <glm/vec2.hpp>
#include <glm/vec3.hpp>

#include "resfile/region_file.h"

namespace morvane {

/// Columns and rows of the height grid that pins stand on.
struct GridSize {
  std::size_t width = 0;
  std::size_t height = 0;
};

struct PinSize {
  glm::vec3 halfExtents;  ///< of the box, model units
  float companion;        ///< the marker scale that goes with it
};

/// The centres of two pins in model units; x along the columns and y along the rows of the grid.
struct PinPair {
  glm::vec3 a{0.0F};
  glm::vec3 b{0.0F};
};

/// The grid's corner pins are thinner than any profile pin.
inline constexpr glm::vec3 kCornerHalfExtents{0.01F, 0.01F, 0.1F};

/// The size of profile pins; thin ones on a narrow grid, so that a pin does not hide many points.
PinSize pinSize(std::size_t gridWidth);

/// Where the profile pins are made: the two ends of the first column.
PinPair profilePins(const GridSize& grid);
/// Where the grid's corner pins are made: at the origin and at the far corner.
PinPair gridCorners(const GridSize& grid);

/// `position` within the grid: x up to one step beyond the last column, y up to the last row. A
/// coordinate that is not a number becomes 0.
glm::vec3 clampedToGrid(const glm::vec3& position, const GridSize& grid);
PinPair clampedToGrid(const PinPair& pins, const GridSize& grid);

/// `position` moved by `motion` in model units, then clamped. Its z stays; a component of the
/// motion that is not a number counts as none.
glm::vec3 movePin(const glm::vec3& position, glm::vec2 motion, const GridSize& grid);

/// Both pins moved together: in an axis in which either would not stand strictly inside the grid
/// neither moves, so that the line slides along the edge. Then both are clamped.
PinPair movePins(const PinPair& pins, glm::vec2 motion, const GridSize& grid);

/// The grid points between two corners, both included, at least 2 × 2 of them; `grid` must have
/// that many.
GridRegion regionBetween(const PinPair& corners, const GridSize& grid);

/// The pins with their places exchanged.
inline PinPair swapped(const PinPair& pins) { return {pins.b, pins.a}; }

}  // namespace morvane
