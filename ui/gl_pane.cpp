#include "ui/gl_pane.h"

#include <FL/Fl.H>

#include <algorithm>

namespace morvane {

bool GlPane::showKept() { return damage() == FL_DAMAGE_EXPOSE && valid() != 0 && kept_.put(); }

void GlPane::keepFrame() { kept_.take(pixel_w(), pixel_h()); }

ScreenPart GlPane::picture() {
  if (shown() == 0 || visible_r() == 0) return {};
  make_current();
  if (glBlitFramebuffer == nullptr) return {};  // the view draws nothing either
  drawWhole();
  kept_.take(pixel_w(), pixel_h());
  ScreenPart part{{x_root(), y_root()}, RgbImage(pixel_w(), pixel_h())};
  RgbImage& image = part.image;
  kept_.read(image.pixels.data());
  // GL's first row is the bottom one.
  const auto height = static_cast<std::size_t>(image.height);
  for (std::size_t row = 0; row < height / 2; ++row) {
    std::swap_ranges(image.row(row), image.row(row + 1), image.row(height - 1 - row));
  }
  swap_buffers();
  return part;
}

}  // namespace morvane
