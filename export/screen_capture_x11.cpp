// The picture is that of the main window itself: under a compositor the screen as a whole need not
// be readable, a program's own window is.
#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>
#include <FL/x.H>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "export/jpeg_file.h"
#include "export/screen_picture.h"

namespace morvane {
namespace {

struct ImageFreer {
  void operator()(XImage* image) const { XDestroyImage(image); }
};
using ImagePtr = std::unique_ptr<XImage, ImageFreer>;

/// While it lives, the server's errors on `display` are kept from the usual handler: a window can
/// go or be hidden between any two requests.
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

/// What can be read of a rectangle of the screen.
struct WindowPart {
  ImagePtr image;
  ScreenPoint corner;  // on the screen
};

/// Reads the part of `wanted` that lies in `window` and on the screen. Null image when there is
/// none, or the window is not shown.
WindowPart readWindow(Display* display, Window window, const ScreenRect& wanted) {
  const ErrorGuard guard(display);
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
  return {ImagePtr(XGetImage(display, window, from.x - place.x, from.y - place.y,
                             static_cast<unsigned>(to.x - from.x),
                             static_cast<unsigned>(to.y - from.y), AllPlanes, ZPixmap)),
          from};
}

/// One colour of a pixel, stretched to 8 bits whatever its number of bits.
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

/// Puts `part` into `picture` from column `x` and row `y` on, where it fits whole.
void paste(XImage& part, int x, int y, RgbImage& picture) {
  const Channel red(part.red_mask);
  const Channel green(part.green_mask);
  const Channel blue(part.blue_mask);
  for (int row = 0; row < part.height; ++row) {
    unsigned char* to = picture.row(static_cast<std::size_t>(y) + static_cast<std::size_t>(row)) +
                        std::ptrdiff_t{3} * x;
    for (int column = 0; column < part.width; ++column) {
      const unsigned long pixel = XGetPixel(&part, column, row);
      *to++ = red.of(pixel);
      *to++ = green.of(pixel);
      *to++ = blue.of(pixel);
    }
  }
}

class X11Picture : public ScreenPicture {
 public:
  explicit X11Picture(RgbImage image) : image_(std::move(image)) {}

  void copyToClipboard() const override {
    constexpr int kClipboard = 1;  // 0 is the selection
    Fl::copy_image(image_.pixels.data(), image_.width, image_.height, kClipboard);
  }

  [[nodiscard]] std::string saveJpeg(const std::string& path) const override {
    return morvane::saveJpeg(image_, path);
  }

 private:
  RgbImage image_;
};

}  // namespace

std::unique_ptr<ScreenPicture> takeScreenPicture(Fl_Window* window, ScreenPoint corner, int width,
                                                 int height) {
  if (window == nullptr || window->shown() == 0) return nullptr;
  // In 64 bits, since the rectangle may begin anywhere.
  const auto end = [](std::int32_t start, int length) {
    return static_cast<std::int32_t>(
        std::min<std::int64_t>(std::int64_t{start} + length, INT32_MAX));
  };
  const ScreenRect wanted = {corner, {end(corner.x, width), end(corner.y, height)}};
  const WindowPart part = readWindow(fl_display, fl_xid(window), wanted);
  if (!part.image) return nullptr;
  RgbImage image(width, height);
  paste(*part.image, part.corner.x - corner.x, part.corner.y - corner.y, image);
  return std::make_unique<X11Picture>(std::move(image));
}

}  // namespace morvane
