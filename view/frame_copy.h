// A copy of a window's frame.
#pragma once

#include "view/gl_objects.h"

namespace morvane {

/// Holds the colours of a frame, with multisampling resolved, as the screen shows them. Everything
/// happens in the window's current context.
class FrameCopy {
 public:
  /// Copies the frame of `width` × `height` pixels that has just been drawn.
  void take(int width, int height);
  /// Discards the copy; its memory is reused.
  void forget() { holds_ = false; }
  /// Puts it into the window's next frame, which must be of the same size. False where there is no
  /// copy, or the driver cannot.
  [[nodiscard]] bool put() const;
  /// Reads it: bottom row first, three bytes per pixel, no padding.
  void read(unsigned char* pixels) const;

 private:
  GlRenderbuffer pixels_;
  int width_ = 0;
  int height_ = 0;
  bool usable_ = false;  // the driver can copy
  bool holds_ = false;
};

}  // namespace morvane
