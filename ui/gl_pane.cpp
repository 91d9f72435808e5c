#include "ui/gl_pane.h"

#include <algorithm>

#include "view/gl_objects.h"

namespace morvane {
namespace {

/// The frame just drawn, with the samples of each pixel brought together as the screen shows them:
/// read straight from a buffer of several samples, some drivers give one of them.
RgbImage readFrame(int width, int height) {
  const GlRenderbuffer pixels = GlRenderbuffer::generate();
  const GlFramebuffer single = GlFramebuffer::generate();
  glBindRenderbuffer(GL_RENDERBUFFER, pixels.name());
  glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, width, height);
  glBindFramebuffer(GL_DRAW_FRAMEBUFFER, single.name());
  glFramebufferRenderbuffer(GL_DRAW_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER,
                            pixels.name());
  glReadBuffer(GL_BACK);
  glDisable(GL_FRAMEBUFFER_SRGB);  // colours are copied as they stand
  glBlitFramebuffer(0, 0, width, height, 0, 0, width, height, GL_COLOR_BUFFER_BIT, GL_NEAREST);
  glBindFramebuffer(GL_FRAMEBUFFER, single.name());
  RgbImage image(width, height);
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, image.pixels.data());
  glBindFramebuffer(GL_FRAMEBUFFER, 0);
  return image;
}

}  // namespace

ScreenPart GlPane::picture() {
  if (shown() == 0 || visible_r() == 0) return {};
  make_current();
  if (glBlitFramebuffer == nullptr) return {};  // nothing is drawn either
  draw();
  ScreenPart part{{x_root(), y_root()}, readFrame(pixel_w(), pixel_h())};
  // GL counts rows from below.
  RgbImage& image = part.image;
  const auto height = static_cast<std::size_t>(image.height);
  for (std::size_t row = 0; row < height / 2; ++row) {
    std::swap_ranges(image.row(row), image.row(row + 1), image.row(height - 1 - row));
  }
  return part;
}

}  // namespace morvane
