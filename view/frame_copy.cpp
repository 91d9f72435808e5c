#include "view/frame_copy.h"

#include "view/gl_driver.h"
#include "view/gl_state.h"

namespace morvane {
namespace {

/// Binds `pixels` in place of the window's frame, for reading or drawing, while it lives.
class Bound {
 public:
  Bound(GLenum target, const GlRenderbuffer& pixels) : target_(target) {
    glBindFramebuffer(target, buffer_.name());
    glFramebufferRenderbuffer(target, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, pixels.name());
  }
  ~Bound() { glBindFramebuffer(target_, 0); }
  Bound(const Bound&) = delete;
  Bound& operator=(const Bound&) = delete;

 private:
  GlSwitch noConversion_{GL_FRAMEBUFFER_SRGB, false};
  GLenum target_;
  GlFramebuffer buffer_ = GlFramebuffer::generate();
};

void copyColours(int width, int height) {
  glBlitFramebuffer(0, 0, width, height, 0, 0, width, height, GL_COLOR_BUFFER_BIT, GL_NEAREST);
}

}  // namespace

void FrameCopy::take(int width, int height) {
  const bool fresh = width != width_ || height != height_ || pixels_.name() == 0;
  if (fresh) {
    takeGlErrors("window");
    pixels_ = GlRenderbuffer::generate();
    glBindRenderbuffer(GL_RENDERBUFFER, pixels_.name());
    glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, width, height);
    width_ = width;
    height_ = height;
  }
  {
    const Bound target(GL_DRAW_FRAMEBUFFER, pixels_);
    copyColours(width, height);
  }
  // A driver that cannot copy fails at the first attempt.
  if (fresh) usable_ = glGetError() == GL_NO_ERROR;
  holds_ = usable_;
}

bool FrameCopy::put() const {
  if (!holds_) return false;
  const Bound source(GL_READ_FRAMEBUFFER, pixels_);
  copyColours(width_, height_);
  return true;
}

void FrameCopy::read(unsigned char* pixels) const {
  const Bound source(GL_READ_FRAMEBUFFER, pixels_);
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, width_, height_, GL_RGB, GL_UNSIGNED_BYTE, pixels);
}

}  // namespace morvane
