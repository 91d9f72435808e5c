// A picture in GL's memory that is drawn into in place of a window.
#pragma once

#include "view/gl_objects.h"

namespace morvane {

/// While it is bound everything is drawn into it. All functions need the same current GL context.
class PictureTarget {
 public:
  /// Binds a picture of `width` × `height` pixels, by default with as many samples as in the
  /// windows.
  PictureTarget(int width, int height, int samples = 4);
  ~PictureTarget() { unbind(); }
  PictureTarget(const PictureTarget&) = delete;
  PictureTarget& operator=(const PictureTarget&) = delete;

  [[nodiscard]] int width() const { return width_; }
  [[nodiscard]] int height() const { return height_; }
  void bind();
  /// Binds what was bound before.
  void unbind();

  /// False if the driver cannot hold a picture of this size.
  [[nodiscard]] bool usable() const { return usable_; }
  /// Copies it into the frame that was bound before, which must have the same size.
  void copyBack() const;
  /// Reads it: top row first, three bytes per pixel, no padding.
  void read(unsigned char* pixels) const;

  /// The largest width and height that the driver supports.
  static int largestSide();

 private:
  int width_;
  int height_;
  bool usable_ = false;
  bool bound_ = false;
  GLint before_ = 0;  // the frame buffer that was bound
  GlFramebuffer buffer_;
  GlRenderbuffer colours_;
  GlRenderbuffer depth_;
};

}  // namespace morvane
