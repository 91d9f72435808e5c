// Pictures of the screen: onto the clipboard and into the user's folder of screenshots.
#pragma once

#include <string>

#include "report/screen_rect.h"

namespace morvane {

struct Screenshot {
  std::string path;    ///< of the JPEG file; empty when there is none
  std::string reason;  ///< why there is none; empty otherwise
};

/// Takes the rectangle that starts at `topLeft` and is as wide and high as the two points are
/// apart, puts it on the clipboard and saves it as a JPEG file named after the present moment, in
/// place of an older one of that name. Takes what is on the screen: draw first. What lies outside
/// the screen, or where the system shows only the program's own windows outside its main window,
/// is black.
Screenshot captureScreenRect(ScreenPoint topLeft, ScreenPoint bottomRight);

}  // namespace morvane
