// Reads the main window, not the root window: with a compositor the root window need not be
// readable, but a program's own windows are.
#include <FL/Fl_Double_Window.H>
#include <FL/x.H>

#include <algorithm>
#include <bit>
#include <memory>

#include "export/screen_picture.h"

namespace morvane {
namespace {

struct ImageFreer {
  void operator()(XImage* image) const { XDestroyImage(image); }
};
using ImagePtr = std::unique_ptr<XImage, ImageFreer>;

/// Catches X errors on `display` during its lifetime: a window can be closed or hidden between any
/// two requests.
class ErrorGuard {
 public:
  explicit ErrorGuard(Display* display) : display_(display) {
    XSync(display_, False);
    previous_ = XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
  }
  ~ErrorGuard() {
    XSync(display_, False);
    XSetErrorHandler(previous_);
  }
  ErrorGuard(const ErrorGuard&) = delete;
  ErrorGuard& operator=(const ErrorGuard&) = delete;

 private:
  Display* display_;
  XErrorHandler previous_;
};

/// One colour channel of a pixel, scaled to 8 bits.
class Channel {
 public:
  explicit Channel(unsigned long mask)
      : mask_(mask), shift_(mask == 0 ? 0 : std::countr_zero(mask)), largest_(mask >> shift_) {}

  [[nodiscard]] unsigned char of(unsigned long pixel) const {
    if (largest_ == 0) return 0;
    return static_cast<unsigned char>(((pixel & mask_) >> shift_) * 255 / largest_);
  }

 private:
  unsigned long mask_;
  int shift_;
  unsigned long largest_;
};

RgbImage toRgb(XImage& image) {
  const Channel red(image.red_mask);
  const Channel green(image.green_mask);
  const Channel blue(image.blue_mask);
  RgbImage picture(image.width, image.height);
  unsigned char* to = picture.pixels.data();
  for (int row = 0; row < image.height; ++row) {
    for (int column = 0; column < image.width; ++column) {
      const unsigned long pixel = XGetPixel(&image, column, row);
      *to++ = red.of(pixel);
      *to++ = green.of(pixel);
      *to++ = blue.of(pixel);
    }
  }
  return picture;
}

/// Reads the part of `wanted` that is inside `window` and on the screen. Empty when there is no
/// such part, or the window is not shown.
ScreenPart readWindow(Display* display, Window window, const ScreenRect& wanted) {
  XWindowAttributes screen{};
  XWindowAttributes inside{};
  ScreenPoint place;
  Window child = None;
  if (XGetWindowAttributes(display, window, &inside) == 0 || inside.map_state != IsViewable ||
      XGetWindowAttributes(display, inside.root, &screen) == 0 ||
      XTranslateCoordinates(display, window, inside.root, 0, 0, &place.x, &place.y, &child) == 0) {
    return {};
  }
  const ScreenPoint from = {std::max({wanted.topLeft.x, place.x, 0}),
                            std::max({wanted.topLeft.y, place.y, 0})};
  const ScreenPoint to = {std::min({wanted.bottomRight.x, place.x + inside.width, screen.width}),
                          std::min({wanted.bottomRight.y, place.y + inside.height, screen.height})};
  if (from.x >= to.x || from.y >= to.y) return {};
  const ImagePtr image(XGetImage(display, window, from.x - place.x, from.y - place.y,
                                 static_cast<unsigned>(to.x - from.x),
                                 static_cast<unsigned>(to.y - from.y), AllPlanes, ZPixmap));
  if (!image) return {};
  return {from, toRgb(*image)};
}

}  // namespace

ScreenPart readScreen(Fl_Window* window, const ScreenRect& wanted) {
  if (window == nullptr || window->shown() == 0) return {};
  const ErrorGuard guard(fl_display);
  return readWindow(fl_display, fl_xid(window), wanted);
}

}  // namespace morvane
