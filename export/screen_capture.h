// Screenshots: to the clipboard and to the user's folder of screenshots.
#pragma once

#include <span>
#include <string>

#include "export/screen_rect.h"

class Fl_Window;

namespace morvane {

struct Screenshot {
  Bytes jpeg;          ///< the picture; empty on failure
  std::string path;    ///< of the JPEG file; empty when it could not be saved
  std::string reason;  ///< why no file was saved; else empty
};

/// Captures the rectangle between the two points, puts it on the clipboard and saves it as a JPEG
/// file named after the current time. It replaces an older file of that name. The picture is read
/// from the screen, or from `window` on systems where a program can only read its own windows. The
/// program's `own` pictures are pasted over it, so that windows in front do not appear in them.
/// Pixels that cannot be read are black. Redraw the windows before calling this.
Screenshot captureScreenRect(ScreenPoint topLeft, ScreenPoint bottomRight,
                             Fl_Window* window = nullptr, std::span<const ScreenPart> own = {});

}  // namespace morvane
