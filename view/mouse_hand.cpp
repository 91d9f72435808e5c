#include "view/mouse_hand.h"

#include "geometry/drawn_surface.h"

namespace morvane {

void MouseHand::setWindow(int width, int height) {
  width_ = width;
  height_ = height;
}

void MouseHand::press(glm::vec2 point, HeldButtons pressed) {
  previous_ = point;
  if (!pressed.left && !pressed.right) return;
  if (!tools_.grab(rayThrough(point)) && pressed.left) {
    pressTurn(camera_, point);
  } else {
    releaseTurn(camera_);
  }
}

void MouseHand::drag(glm::vec2 point, HeldButtons held) {
  const glm::vec2 motion = point - previous_;
  if (held.left && held.right) {
    zoomByDrag(camera_, motion.y);
    // Rotates too if the left button was pressed last, since that began a rotation.
    dragTurn(camera_, width_, height_, point);
  } else if (tools_.dragging() && (held.left || held.right)) {
    tools_.drag(shown_, matrices(), rayThrough(point), held.right);
  } else if (held.left) {
    dragTurn(camera_, width_, height_, point);
  } else if (held.right) {
    panByPixels(camera_, motion);
  }
  previous_ = point;
}

bool MouseHand::release(glm::vec2 point, HeldButtons held) {
  const bool moved = point != previous_;
  if (moved) drag(point, held);
  releaseTurn(camera_);
  tools_.release();
  return moved;
}

void MouseHand::move(glm::vec2 point) { anchorZoom(camera_, rayThrough(point)); }

ViewMatrices MouseHand::matrices() {
  if (!shown_.modelLoaded()) return {};
  return currentMatrices(shown_, camera_, width_, height_);
}

Ray MouseHand::rayThrough(glm::vec2 point) {
  return pickRay(matrices(), width_, height_, point.x, point.y);
}

}  // namespace morvane
