// What the mouse and the keyboard do in the 3D view: events become calls on the camera and on the
// tools.
#include <FL/Fl.H>

#include <iostream>

#include "ui/gl_window.h"

namespace morvane {
namespace {

bool leftHeld() { return Fl::event_button1() != 0; }
bool rightHeld() { return Fl::event_button3() != 0; }

glm::vec2 eventPoint() {
  return {static_cast<float>(Fl::event_x()), static_cast<float>(Fl::event_y())};
}

}  // namespace

int GLWindow::handle(int event) {
  switch (event) {
    case FL_SHOW: {
      const int result = Fl_Gl_Window::handle(event);
      if (firstShow_) initialiseGlew();
      return result;
    }
    case FL_PUSH:
      return onPush();
    case FL_RELEASE:
      return onRelease();
    case FL_DRAG:
      return onDrag();
    case FL_MOVE:
      return onMove();
    case FL_MOUSEWHEEL:
      return onWheel();
    case FL_ENTER:
      std::cout << "Entered\n";
      // Wanted, so that motion without a button is told; then passed on.
      (void)Fl_Gl_Window::handle(event);
      // The motion that led here is told as this event alone.
      return onMove();
    case FL_KEYDOWN:
      std::cout << "Key Down\n";
      // Kept: the words are the wrong way round.
      if (Fl::event_key() == FL_Up) std::cout << "DOWN KEY PRESSED\n";
      if (Fl::event_key() == FL_Down) std::cout << "UP KEY PRESSED\n";
      break;
    case FL_SHORTCUT:
    case FL_ZOOM_GESTURE:
      std::cout << "\n>>> ZOOM <<< \n\n";
      break;
    default:
      break;
  }
  return Fl_Gl_Window::handle(event);
}

int GLWindow::onPush() {
  const glm::vec2 point = eventPoint();
  mousePrevious_ = point;
  const int button = Fl::event_button();
  if (button != FL_LEFT_MOUSE && button != FL_RIGHT_MOUSE) return 1;
  const Ray ray = pickRay(matrices_, w(), h(), point.x, point.y);
  grabTool(pickWorld_ ? pickWorld_->rayTest(ray.origin, ray.direction) : nullptr);
  if (toolDrag_ == ToolDrag::kNone && button == FL_LEFT_MOUSE) {
    pressTurn(camera_, point);
  } else {
    releaseTurn(camera_);
  }
  return 1;
}

int GLWindow::onRelease() {
  // Motion right before the release may have been merged into it.
  const bool left = leftHeld() || Fl::event_button() == FL_LEFT_MOUSE;
  const bool right = rightHeld() || Fl::event_button() == FL_RIGHT_MOUSE;
  if (eventPoint() != mousePrevious_) dragTo(eventPoint(), left, right);
  releaseTurn(camera_);
  releaseTool();
  return 1;
}

int GLWindow::onDrag() {
  dragTo(eventPoint(), leftHeld(), rightHeld());
  return 1;
}

void GLWindow::dragTo(glm::vec2 point, bool left, bool right) {
  const glm::vec2 motion = point - mousePrevious_;
  if (left && right) {
    zoomByDrag(camera_, motion.y);
    // Turned too if the left button came last, as it began a turn.
    dragTurn(camera_, w(), h(), point);
  } else if (toolDrag_ != ToolDrag::kNone && (left || right)) {
    if (right && toolDrag_ == ToolDrag::kProfilePin) profiler_->grabSecond();
    dragTool(point);
  } else if (left) {
    dragTurn(camera_, w(), h(), point);
  } else if (right) {
    panByPixels(camera_, motion);
  }
  mousePrevious_ = point;
  redraw();
}

int GLWindow::onMove() {
  const glm::vec2 point = eventPoint();
  anchorZoom(camera_, pickRay(matrices_, w(), h(), point.x, point.y));
  return 1;
}

int GLWindow::onWheel() {
  std::cout << "SCALE: " << camera_.distance << '\n';
  // No motion need have come before: the toolkit merges it into what follows.
  onMove();
  zoomByWheel(camera_, Fl::event_dy());
  redraw();
  return 1;
}

}  // namespace morvane
