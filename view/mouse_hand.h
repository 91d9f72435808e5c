// The mouse in the 3D view: rotating, panning, zooming, and moving the tools' pins.
#pragma once

#include <string>

#include "geometry/camera.h"
#include "surface/shown_surface.h"
#include "view/tools.h"

namespace morvane {

/// Buttons of the mouse that are held.
struct HeldButtons {
  bool left = false;
  bool right = false;
};

/// Points are pixels of the window, y down.
class MouseHand {
 public:
  /// The arguments must outlive this object.
  MouseHand(ShownSurface& shown, Camera& camera, Tools& tools)
      : shown_(shown), camera_(camera), tools_(tools) {}

  /// Sets the size of the window of the points.
  void setWindow(int width, int height);

  /// A button is pressed: grabs the pin there, or begins to rotate or pan.
  void press(glm::vec2 point, HeldButtons pressed);
  void drag(glm::vec2 point, HeldButtons held);
  /// A button is released. The event may contain motion that was not reported as a drag, so that is
  /// applied first. Returns whether the picture changed.
  bool release(glm::vec2 point, HeldButtons held);
  /// Makes zooming follow `point`.
  void move(glm::vec2 point);
  void wheel(int amount);
  /// Whether zooming stops before the surface, or goes through it.
  bool stopsAtSurface = false;
  /// The point of the surface at `point` in words; see `pointText`.
  [[nodiscard]] std::string textAt(glm::vec2 point);

 private:
  [[nodiscard]] ViewMatrices matrices();
  [[nodiscard]] bool blocksZoom(bool inwards);
  [[nodiscard]] Ray rayThrough(glm::vec2 point);

  ShownSurface& shown_;
  Camera& camera_;
  Tools& tools_;
  int width_ = 1;
  int height_ = 1;
  glm::vec2 previous_{0.0F, 0.0F};  // where the last press or drag was
};

}  // namespace morvane
