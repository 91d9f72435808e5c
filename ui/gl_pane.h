// A GL window of the program that keeps its picture.
#pragma once

#include <FL/Fl_Gl_Window.H>

#include "export/screen_rect.h"
#include "view/frame_copy.h"

namespace morvane {

class GlPane : public Fl_Gl_Window {
 public:
  using Fl_Gl_Window::Fl_Gl_Window;

  /// Draws a frame and reads it before the screen gets it, so that nothing that lies over the
  /// window is in it. No picture of a window that is not shown.
  ScreenPart picture();

 protected:
  /// Shows the frame that was kept where nothing has changed since, as other windows over this one
  /// have only come and gone. False where a frame must be drawn. For use in `draw()`.
  bool showKept();
  /// Keeps the frame that has just been drawn, except while the picture is dragged.
  void keepFrame();

 private:
  FrameCopy kept_;
};

}  // namespace morvane
