// Windows on an X server: finds them, sends them real mouse and key events, captures their pixels.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/gui/image.h"

namespace morvane::gui {

class Window;

/// A connection to an X server; copies share it.
class Screen {
 public:
  /// `name` as in $DISPLAY. Throws when there is no server of that name.
  explicit Screen(const std::string& name);

  [[nodiscard]] const std::string& name() const { return name_; }
  [[nodiscard]] Image capture() const;
  /// The top-level windows of a process that are on the screen now.
  [[nodiscard]] std::vector<Window> windowsOf(pid_t process) const;
  /// How many windows of open menus a process has.
  [[nodiscard]] std::size_t menusOf(pid_t process) const;
  /// Whether no program keeps the pointer to itself, as open menus do.
  [[nodiscard]] bool pointerFree() const;
  /// Puts a black window that belongs to no program in front of all others. It is closed when the
  /// result is destroyed.
  [[nodiscard]] std::shared_ptr<void> cover(const Area& area) const;
  /// Runs xdotool with these words on this screen.
  void xdotool(const std::vector<std::string>& words) const;

 private:
  friend class Window;
  std::string name_;
  std::shared_ptr<void> display_;  // a Display; Xlib's header has too many macros
};

/// A top-level window. Points and areas are relative to its content, without the frame. Its picture
/// includes what lies over it, such as menus and tooltips.
class Window {
 public:
  Window(Screen screen, unsigned long id) : screen_(std::move(screen)), id_(id) {}

  [[nodiscard]] std::string title() const;
  /// Where it lies on the screen.
  [[nodiscard]] Area area() const;
  [[nodiscard]] bool shown() const;
  void awaitGone() const;

  void click(Point at, int button = 1) const;
  /// Presses the buttons at `from`, moves to `to` in small steps, and releases there.
  void drag(Point from, Point to, const std::vector<int>& buttons = {1}) const;
  /// The same, but without releasing the buttons; `release` does that later.
  void hold(Point from, Point to, const std::vector<int>& buttons = {1}) const;
  void release(const std::vector<int>& buttons = {1}) const;
  /// Turns the wheel at a point; positive steps are away from the user.
  void wheel(Point at, int steps) const;
  /// Drops a file at a point as a file manager does: the program can get the link only after the
  /// drop. Returns whether it got it.
  [[nodiscard]] bool drop(const std::string& link, Point at) const;
  /// Moves the pointer to where no window of the program is.
  void leave() const;
  /// Presses keys one after the other, named as xdotool names them: "ctrl+o", "Return".
  void key(const std::vector<std::string>& keys) const;
  void type(const std::string& letters) const;
  /// Moves the window to the screen's top left corner and gives its content this size.
  void resize(int width, int height) const;
  /// Asks it to close as a window manager does.
  void close() const;

  /// What the screen shows in its place. The window must be on the screen completely.
  [[nodiscard]] Image capture() const { return screen_.capture().part(area()); }
  /// Waits until the picture fulfils `predicate` and returns it; `what` says what was waited for.
  Image awaitPicture(const std::string& what,
                     const std::function<bool(const Image&)>& predicate) const;

 private:
  void sendKeys(std::vector<std::string> words) const;
  [[nodiscard]] std::vector<std::string> moveTo(Point at) const;

  Screen screen_;
  unsigned long id_;
};

}  // namespace morvane::gui
