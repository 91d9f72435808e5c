// Pictures of the screen: onto the clipboard and into the user's folder of screenshots.
#pragma once

#include <span>
#include <string>

#include "export/screen_rect.h"

class Fl_Window;

namespace morvane {

struct Screenshot {
  Bytes jpeg;          ///< the picture; empty when there is none
  std::string path;    ///< of the JPEG file; empty when it could not be saved
  std::string reason;  ///< why there is no file; empty otherwise
};

/// Takes the rectangle that starts at `topLeft` and is as wide and high as the two points are
/// apart, puts it on the clipboard and saves it as a JPEG file named after the present moment, in
/// place of an older one of that name. Over what the screen shows, or where the system lets a
/// program read its own windows only, what it shows of `window`, come the program's `own` pictures,
/// which nothing can lie over. What is known from neither is black. Draw first.
Screenshot captureScreenRect(ScreenPoint topLeft, ScreenPoint bottomRight,
                             Fl_Window* window = nullptr, std::span<const ScreenPart> own = {});

}  // namespace morvane
