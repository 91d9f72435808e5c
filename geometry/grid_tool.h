// The grid tool: two corner pins and the translucent box between them, which marks an area.
#pragma once

#include "geometry/pin.h"

namespace morvane {

class GridTool {
 public:
  /// Takes the size of the grid on show: the first one puts the corners at its ends, a smaller one
  /// later brings them inside.
  void setGrid(const GridSize& grid);

  [[nodiscard]] Pins& corners() { return corners_; }
  [[nodiscard]] PinPair places() const { return placesOf(corners_); }

  /// Makes `corner` the one that `move` moves.
  void grab(Pin& corner) { grabbed_ = &corner; }
  [[nodiscard]] const Pin& grabbed() const { return *grabbed_; }
  /// Moves the grabbed corner by a motion in model units.
  void move(glm::vec2 motion);

  /// The translucent box between the corners.
  [[nodiscard]] Pin box() const;

 private:
  GridSize grid_;
  PinSize pinSize_{};  // recorded with the grid; the corners have a size of their own
  Pins corners_;
  Pin* grabbed_ = corners_.data();
  bool placed_ = false;
};

}  // namespace morvane
