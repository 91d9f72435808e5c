// A GL window that keeps its last frame.
#pragma once

#include <FL/Fl_Gl_Window.H>

#include "export/screen_rect.h"
#include "view/frame_copy.h"

namespace morvane {

class GlPane : public Fl_Gl_Window {
 public:
  using Fl_Gl_Window::Fl_Gl_Window;

  /// Draws a whole frame, shows it, and reads it from GL, so that windows in front are not in it.
  /// Empty if the window is not shown.
  ScreenPart picture();

 protected:
  /// Draws a complete frame, even where `draw` would draw a coarse one.
  virtual void drawWhole() { draw(); }
  /// Shows the kept frame if nothing has changed since: the window was only uncovered. False when a
  /// frame must be drawn. For use in `draw()`.
  bool showKept();
  /// Keeps the frame just drawn.
  void keepFrame();
  /// Keeps none.
  void keepNothing() { kept_.forget(); }

 private:
  FrameCopy kept_;
};

}  // namespace morvane
