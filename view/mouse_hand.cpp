#include "view/mouse_hand.h"

#include "geometry/drawn_surface.h"
#include "geometry/point_text.h"

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
    if (!blocksZoom(motion.y < 0.0F)) zoomByDrag(camera_, motion.y);
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

void MouseHand::wheel(int amount) {
  if (!blocksZoom(amount < 1)) zoomByWheel(camera_, amount);
}

bool MouseHand::blocksZoom(bool inwards) {
  if (!stopsAtSurface || !inwards || !shown_.modelLoaded()) return false;
  const glm::mat4 overlay = matrices().overlay;
  const glm::vec3 ahead(0.0F, 0.0F, -1.0F);
  const Ray sight{camera_.eye, ahead, camera_.eye + kRayLength * ahead};
  const std::optional<SurfaceHit> hit = surfaceHit(drawnHeights(shown_), sight, overlay);
  const float surface = hit ? (overlay * glm::vec4(hit->point, 1.0F)).z : 0.0F;
  return camera_.distance - camera_.zoomStep - surface < 2.0F * kNearPlane;
}

std::string MouseHand::textAt(glm::vec2 point) {
  if (!shown_.modelLoaded()) return {};
  return pointText(shown_, rayThrough(point), matrices().overlay);
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
