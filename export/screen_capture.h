// Pictures of the screen: onto the clipboard and into the user's folder of screenshots.
#pragma once

#include <string>

#include "export/screen_rect.h"

class Fl_Window;

namespace morvane {

struct Screenshot {
  std::string path;    ///< of the JPEG file; empty when there is none
  std::string reason;  ///< why there is none; empty otherwise
};

/// Takes the rectangle that starts at `topLeft` and is as wide and high as the two points are
/// apart, puts it on the clipboard and saves it as a JPEG file named after the present moment, in
/// place of an older one of that name. Takes what is on the screen: draw first. What lies outside
/// the screen is black, and so is what lies outside `window` where the system lets a program read
/// its own windows only.
Screenshot captureScreenRect(ScreenPoint topLeft, ScreenPoint bottomRight,
                             Fl_Window* window = nullptr);

}  // namespace morvane
