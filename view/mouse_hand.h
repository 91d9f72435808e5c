// What the mouse does in the picture: turning, shifting, zooming, and moving the tools' pins.
#pragma once

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
  /// All must outlive it.
  MouseHand(ShownSurface& shown, Camera& camera, Tools& tools)
      : shown_(shown), camera_(camera), tools_(tools) {}

  /// Takes the size of the window that the points are in.
  void setWindow(int width, int height);

  /// One button goes down: grabs the pin there, else begins a turn or a shift.
  void press(glm::vec2 point, HeldButtons pressed);
  void drag(glm::vec2 point, HeldButtons held);
  /// The last button goes up; motion right before may have been merged into that event.
  /// Whether that changed the picture is returned.
  bool release(glm::vec2 point, HeldButtons held);
  /// Makes zooming follow the point.
  void move(glm::vec2 point);
  void wheel(int amount) { zoomByWheel(camera_, amount); }

 private:
  [[nodiscard]] ViewMatrices matrices();
  [[nodiscard]] Ray rayThrough(glm::vec2 point);

  ShownSurface& shown_;
  Camera& camera_;
  Tools& tools_;
  int width_ = 1;
  int height_ = 1;
  glm::vec2 previous_{0.0F, 0.0F};  // where the last press or drag was
};

}  // namespace morvane
