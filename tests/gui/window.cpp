#include "tests/gui/window.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

#include "tests/gui/process.h"

namespace morvane::gui {
namespace {

Display* xlib(const std::shared_ptr<void>& display) { return static_cast<Display*>(display.get()); }

/// The children of an X window; empty when it has gone.
std::vector<::Window> childrenOf(Display* display, ::Window window) {
  ::Window root = 0;
  ::Window parent = 0;
  ::Window* children = nullptr;
  unsigned count = 0;
  if (XQueryTree(display, window, &root, &parent, &children, &count) == 0) return {};
  std::vector<::Window> result(children, children + count);
  if (children != nullptr) XFree(children);
  return result;
}

/// The bytes of a property as Xlib returns them, 32-bit items as longs. Empty if there is none.
std::string propertyOf(Display* display, ::Window window, const char* name) {
  Atom type = 0;
  int format = 0;
  unsigned long items = 0;
  unsigned long left = 0;
  unsigned char* data = nullptr;
  const Atom property = XInternAtom(display, name, False);
  if (XGetWindowProperty(display, window, property, 0, 1024, False, AnyPropertyType, &type, &format,
                         &items, &left, &data) != Success ||
      data == nullptr) {
    return {};
  }
  const std::size_t itemSize = format == 32 ? sizeof(long) : static_cast<std::size_t>(format) / 8;
  std::string result(reinterpret_cast<const char*>(data), items * itemSize);
  XFree(data);
  return result;
}

bool belongsTo(Display* display, ::Window window, pid_t process) {
  const std::string bytes = propertyOf(display, window, "_NET_WM_PID");
  unsigned long id = 0;
  if (bytes.size() != sizeof id) return false;
  std::memcpy(&id, bytes.data(), sizeof id);
  return id == static_cast<unsigned long>(process);
}

bool onScreen(Display* display, ::Window window) {
  XWindowAttributes attributes{};
  return XGetWindowAttributes(display, window, &attributes) != 0 &&
         attributes.map_state == IsViewable;
}

/// Sends a client message of 32-bit items. Its protocol defines `data`.
void tell(Display* display, ::Window window, const char* message,
          const std::array<unsigned long, 5>& data) {
  XEvent event{};
  event.xclient.type = ClientMessage;
  event.xclient.window = window;
  event.xclient.message_type = XInternAtom(display, message, False);
  event.xclient.format = 32;
  std::copy(data.begin(), data.end(), event.xclient.data.l);
  XSendEvent(display, window, False, NoEventMask, &event);
  XFlush(display);
}

std::string text(int number) { return std::to_string(number); }

}  // namespace

Screen::Screen(const std::string& name) : name_(name) {
  if (Display* display = name.empty() ? nullptr : XOpenDisplay(name.c_str())) {
    display_.reset(display, XCloseDisplay);
  } else {
    throw GuiError(
        "These tests drive real windows and need an X server with a window manager, "
        "which scripts/test starts. DISPLAY is \"" +
        name + "\".");
  }
  // Windows may close while we query them. The result shows it, so X errors are ignored.
  XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
}

Image Screen::capture() const {
  Display* display = xlib(display_);
  const int width = XDisplayWidth(display, 0);
  const int height = XDisplayHeight(display, 0);
  // The root window shows what is on top, including GL pictures.
  const std::unique_ptr<XImage, int (*)(XImage*)> image(
      XGetImage(display, DefaultRootWindow(display), 0, 0, static_cast<unsigned>(width),
                static_cast<unsigned>(height), AllPlanes, ZPixmap),
      [](XImage* taken) { return XDestroyImage(taken); });
  if (!image || image->bytes_per_line != width * 4 || image->red_mask != 0xFF0000) {
    throw GuiError("the screen cannot be captured; it must have 24-bit colours");
  }
  const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  std::vector<std::uint32_t> pixels(count);
  std::memcpy(pixels.data(), image->data, count * sizeof pixels[0]);
  for (std::uint32_t& pixel : pixels) pixel &= 0xFFFFFF;
  return {width, height, std::move(pixels)};
}

std::vector<Window> Screen::windowsOf(pid_t process) const {
  Display* display = xlib(display_);
  std::vector<Window> found;
  // A window manager puts a window into one or two frames. The children of a window of the program
  // are parts of it.
  std::vector<::Window> level = {DefaultRootWindow(display)};
  for (int depth = 0; depth < 3; ++depth) {
    std::vector<::Window> next;
    for (const ::Window window : level) {
      for (const ::Window child : childrenOf(display, window)) {
        if (!belongsTo(display, child, process)) {
          next.push_back(child);
        } else if (onScreen(display, child) &&
                   !propertyOf(display, child, "WM_PROTOCOLS").empty()) {
          found.emplace_back(*this, child);
        }
      }
    }
    level = next;
  }
  return found;
}

std::size_t Screen::menusOf(pid_t process) const {
  Display* display = xlib(display_);
  const Atom menu = XInternAtom(display, "_NET_WM_WINDOW_TYPE_MENU", False);
  const std::string type(reinterpret_cast<const char*>(&menu), sizeof menu);
  const auto windows = childrenOf(display, DefaultRootWindow(display));
  return static_cast<std::size_t>(std::ranges::count_if(windows, [&](::Window window) {
    return propertyOf(display, window, "_NET_WM_WINDOW_TYPE") == type &&
           belongsTo(display, window, process) && onScreen(display, window);
  }));
}

bool Screen::pointerFree() const {
  Display* display = xlib(display_);
  const bool free = XGrabPointer(display, DefaultRootWindow(display), False, 0, GrabModeAsync,
                                 GrabModeAsync, None, None, CurrentTime) == GrabSuccess;
  if (free) XUngrabPointer(display, CurrentTime);
  XSync(display, False);
  return free;
}

std::shared_ptr<void> Screen::cover(const Area& area) const {
  Display* display = xlib(display_);
  XSetWindowAttributes alone{};
  alone.override_redirect = True;
  const ::Window window = XCreateWindow(
      display, DefaultRootWindow(display), area.x, area.y, static_cast<unsigned>(area.w),
      static_cast<unsigned>(area.h), 0, 0, InputOutput, nullptr, CWOverrideRedirect, &alone);
  XSetWindowBackground(display, window, 0);
  XMapRaised(display, window);
  XSync(display, False);
  return {nullptr, [keep = display_, window](void*) {
            XDestroyWindow(xlib(keep), window);
            XSync(xlib(keep), False);
          }};
}

void Screen::xdotool(const std::vector<std::string>& words) const {
  std::vector<std::string> command = {"env", "DISPLAY=" + name_, "xdotool"};
  command.insert(command.end(), words.begin(), words.end());
  runToEnd(command);
}

std::string Window::title() const {
  return propertyOf(xlib(screen_.display_), id_, "_NET_WM_NAME");
}

Area Window::area() const {
  Display* display = xlib(screen_.display_);
  XWindowAttributes attributes{};
  Area area;
  ::Window child = 0;
  if (XGetWindowAttributes(display, id_, &attributes) == 0) return area;
  XTranslateCoordinates(display, id_, attributes.root, 0, 0, &area.x, &area.y, &child);
  area.w = attributes.width;
  area.h = attributes.height;
  return area;
}

bool Window::shown() const { return onScreen(xlib(screen_.display_), id_); }

void Window::awaitGone() const {
  if (!eventually([this] { return !shown(); }))
    throw GuiError("the window \"" + title() + "\" stays");
}

std::vector<std::string> Window::moveTo(Point at) const {
  const Area place = area();
  return {"mousemove", text(place.x + at.x), text(place.y + at.y)};
}

void Window::click(Point at, int button) const {
  std::vector<std::string> words = moveTo(at);
  words.insert(words.end(), {"click", text(button)});
  screen_.xdotool(words);
}

void Window::drag(Point from, Point to, const std::vector<int>& buttons) const {
  hold(from, to, buttons);
  release(buttons);
}

void Window::hold(Point from, Point to, const std::vector<int>& buttons) const {
  constexpr int kSteps = 10;
  std::vector<std::string> words = moveTo(from);
  for (const int button : buttons) words.insert(words.end(), {"mousedown", text(button)});
  for (int step = 1; step <= kSteps; ++step) {
    const auto part = [&](int a, int b) { return a + (b - a) * step / kSteps; };
    const auto move = moveTo({part(from.x, to.x), part(from.y, to.y)});
    words.insert(words.end(), move.begin(), move.end());
  }
  screen_.xdotool(words);
}

void Window::release(const std::vector<int>& buttons) const {
  for (const int button : buttons) screen_.xdotool({"mouseup", text(button)});
}

void Window::wheel(Point at, int steps) const {
  std::vector<std::string> words = moveTo(at);
  words.insert(words.end(), {"click", "--repeat", text(std::abs(steps)), steps > 0 ? "4" : "5"});
  screen_.xdotool(words);
}

bool Window::drop(const std::string& link, Point at) const {
  Display* display = xlib(screen_.display_);
  const ::Window source =
      XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0);
  XSetSelectionOwner(display, XInternAtom(display, "XdndSelection", False), source, CurrentTime);
  const Atom list = XInternAtom(display, "text/uri-list", False);
  const Area place = area();
  const auto where = static_cast<unsigned long>((place.x + at.x) << 16 | (place.y + at.y));
  tell(display, id_, "XdndEnter", {source, 5UL << 24, list});
  tell(display, id_, "XdndPosition", {source, 0, where, CurrentTime, list});
  screen_.xdotool(moveTo(at));  // a real drag holds its pointer events back until the drop
  tell(display, id_, "XdndDrop", {source, 0, CurrentTime});
  bool taken = false;
  const auto finished = [&] {
    XEvent event{};
    while (XPending(display) > 0) {
      XNextEvent(display, &event);
      if (event.type == ClientMessage &&
          event.xclient.message_type == XInternAtom(display, "XdndFinished", False)) {
        return true;
      }
      if (event.type != SelectionRequest) continue;
      taken = true;
      const XSelectionRequestEvent& asked = event.xselectionrequest;
      XChangeProperty(display, asked.requestor, asked.property, list, 8, PropModeReplace,
                      reinterpret_cast<const unsigned char*>(link.data()),
                      static_cast<int>(link.size()));
      XEvent answer{};
      answer.xselection = {
          SelectionNotify, 0,         True, display, asked.requestor, asked.selection, asked.target,
          asked.property,  asked.time};
      XSendEvent(display, asked.requestor, False, NoEventMask, &answer);
      XFlush(display);
    }
    return false;
  };
  const bool answered = eventually(finished);
  XDestroyWindow(display, source);
  if (!answered) throw GuiError("the window \"" + title() + "\" does not answer a drop");
  return taken;
}

void Window::leave() const { screen_.xdotool({"mousemove", "0", "0"}); }

void Window::sendKeys(std::vector<std::string> words) const {
  // A window manager gives a new window the focus, but not at once. Without a window manager nobody
  // does.
  words.insert(words.begin(), {"windowfocus", "--sync", std::to_string(id_)});
  screen_.xdotool(words);
}

void Window::key(const std::vector<std::string>& keys) const {
  std::vector<std::string> words = {"key"};
  words.insert(words.end(), keys.begin(), keys.end());
  sendKeys(words);
}

void Window::type(const std::string& letters) const {
  sendKeys({"type", "--delay", "2", "--", letters});
}

void Window::resize(int width, int height) const {
  const std::string id = std::to_string(id_);
  screen_.xdotool({"windowmove", id, "0", "0", "windowsize", id, text(width), text(height)});
  const auto reached = [&] {
    const Area now = area();
    return now.w == width && now.h == height && now.x < 20 && now.y < 60;
  };
  if (!eventually(reached)) throw GuiError("the window \"" + title() + "\" does not take its size");
}

void Window::close() const {
  Display* display = xlib(screen_.display_);
  tell(display, id_, "WM_PROTOCOLS", {XInternAtom(display, "WM_DELETE_WINDOW", False)});
}

Image Window::awaitPicture(const std::string& what,
                           const std::function<bool(const Image&)>& predicate) const {
  Image image;
  const auto seen = [&] {
    image = capture();
    return predicate(image);
  };
  if (!eventually(seen)) throw GuiError("the picture never showed " + what);
  return image;
}

}  // namespace morvane::gui
