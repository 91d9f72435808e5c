#include "view/picture_target.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "view/gl_driver.h"
#include "view/gl_state.h"

namespace morvane {
namespace {

GlRenderbuffer attach(GLenum attachment, GLenum format, GLsizei samples, int width, int height) {
  GlRenderbuffer pixels = GlRenderbuffer::generate();
  glBindRenderbuffer(GL_RENDERBUFFER, pixels.name());
  glRenderbufferStorageMultisample(GL_RENDERBUFFER, samples, format, width, height);
  glFramebufferRenderbuffer(GL_FRAMEBUFFER, attachment, GL_RENDERBUFFER, pixels.name());
  return pixels;
}

}  // namespace

int PictureTarget::largestSide() {
  GLint side = 0;
  glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &side);
  GLint area[2] = {0, 0};
  glGetIntegerv(GL_MAX_VIEWPORT_DIMS, area);
  return std::min({side, area[0], area[1]});
}

PictureTarget::PictureTarget(int width, int height, int samples) : width_(width), height_(height) {
  takeGlErrors("picture");
  buffer_ = GlFramebuffer::generate();
  bind();
  colours_ = attach(GL_COLOR_ATTACHMENT0, GL_SRGB8_ALPHA8, samples, width, height);
  depth_ = attach(GL_DEPTH_ATTACHMENT, GL_DEPTH_COMPONENT24, samples, width, height);
  usable_ = glGetError() == GL_NO_ERROR &&
            glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
}

void PictureTarget::bind() {
  glGetIntegerv(GL_FRAMEBUFFER_BINDING, &before_);
  glBindFramebuffer(GL_FRAMEBUFFER, buffer_.name());
  bound_ = true;
}

void PictureTarget::unbind() {
  if (std::exchange(bound_, false)) {
    glBindFramebuffer(GL_FRAMEBUFFER, static_cast<GLuint>(before_));
  }
}

void PictureTarget::copyBack() const {
  const GlSwitch noConversion(GL_FRAMEBUFFER_SRGB, false);
  glBindFramebuffer(GL_DRAW_FRAMEBUFFER, static_cast<GLuint>(before_));
  glBlitFramebuffer(0, 0, width_, height_, 0, 0, width_, height_, GL_COLOR_BUFFER_BIT, GL_NEAREST);
  glBindFramebuffer(GL_DRAW_FRAMEBUFFER, buffer_.name());
}

void PictureTarget::read(unsigned char* pixels) const {
  const GlSwitch noConversion(GL_FRAMEBUFFER_SRGB, false);
  const GlFramebuffer resolved = GlFramebuffer::generate();
  glBindFramebuffer(GL_FRAMEBUFFER, resolved.name());
  const GlRenderbuffer single = attach(GL_COLOR_ATTACHMENT0, GL_SRGB8_ALPHA8, 0, width_, height_);
  glBindFramebuffer(GL_READ_FRAMEBUFFER, buffer_.name());
  glBlitFramebuffer(0, 0, width_, height_, 0, 0, width_, height_, GL_COLOR_BUFFER_BIT, GL_NEAREST);
  glBindFramebuffer(GL_READ_FRAMEBUFFER, resolved.name());
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  // GL's first row is the bottom one.
  const std::size_t stride = 3 * static_cast<std::size_t>(width_);
  for (int row = 0; row < height_; ++row) {
    glReadPixels(0, height_ - 1 - row, width_, 1, GL_RGB, GL_UNSIGNED_BYTE,
                 pixels + stride * static_cast<std::size_t>(row));
  }
  glBindFramebuffer(GL_FRAMEBUFFER, buffer_.name());
}

}  // namespace morvane
