// The grid tool: two corner pins and the translucent box between them, which marks an area.
#pragma once

#include "geometry/pin.h"

namespace morvane {

class GridTool {
 public:
  /// Sets the size of the grid shown. The first call puts the corners at the ends of the grid. With
  /// a smaller grid later the corners are clamped to it.
  void setGrid(const GridSize& grid);

  [[nodiscard]] Pins& corners() { return corners_; }
  [[nodiscard]] PinPair places() const { return placesOf(corners_); }

  /// Selects `corner` as the one that `move` moves.
  void grab(Pin& corner) { grabbed_ = &corner; }
  [[nodiscard]] const Pin& grabbed() const { return *grabbed_; }
  /// Moves the grabbed corner by a motion in model units.
  void move(glm::vec2 motion);

  /// The translucent box between the corners.
  [[nodiscard]] Pin box() const;

 private:
  GridSize grid_;
  Pins corners_;
  Pin* grabbed_ = corners_.data();
  bool placed_ = false;
};

}  // namespace morvane
