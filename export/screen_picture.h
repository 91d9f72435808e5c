// What a platform has to offer for pictures of its screen; each has a source of its own.
#pragma once

#include <memory>
#include <string>

#include "export/screen_rect.h"

class Fl_Window;

namespace morvane {

/// A picture in the form its platform keeps it in.
class ScreenPicture {
 public:
  ScreenPicture() = default;
  virtual ~ScreenPicture() = default;
  ScreenPicture(const ScreenPicture&) = delete;
  ScreenPicture& operator=(const ScreenPicture&) = delete;

  /// Leaves the picture on the clipboard, where it outlives this object.
  virtual void copyToClipboard() const = 0;

  /// Saves it under `path` (UTF-8). The file appears only when it is complete. Empty on success,
  /// else the reason.
  [[nodiscard]] virtual std::string saveJpeg(const std::string& path) const = 0;
};

/// Copies `width` x `height` pixels of the screen from `corner` on; both above 0. `window` is the
/// program's, for systems on which a program may read nothing else. Null when there
/// is nothing to copy from.
std::unique_ptr<ScreenPicture> takeScreenPicture(Fl_Window* window, ScreenPoint corner, int width,
                                                 int height);

}  // namespace morvane
