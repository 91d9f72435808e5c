// A GL window of the program that hands out its picture.
#pragma once

#include <FL/Fl_Gl_Window.H>

#include "export/screen_rect.h"

namespace morvane {

class GlPane : public Fl_Gl_Window {
 public:
  using Fl_Gl_Window::Fl_Gl_Window;

  /// Draws a frame and reads it before the screen gets it, so that nothing that lies over the
  /// window is in it. No picture of a window that is not shown.
  ScreenPart picture();
};

}  // namespace morvane
