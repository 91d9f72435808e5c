// Windows on an X server: finding them, sending them real mouse and keys, and seeing their pixels.
#pragma once

#include <sys/types.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/gui/image.h"

struct _XDisplay;

namespace morvane::gui {

class Window;

/// A connection to an X server.
class Screen {
 public:
  /// `name` as in $DISPLAY. Throws when there is no server of that name.
  explicit Screen(const std::string& name);

  [[nodiscard]] const std::string& name() const { return name_; }
  [[nodiscard]] Image capture() const;
  /// What the screen shows within `area`; black where `area` reaches beyond it.
  [[nodiscard]] Image capture(const Area& area) const;
  /// The top-level windows of a process that are on the screen now.
  [[nodiscard]] std::vector<Window> windowsOf(pid_t process) const;
  /// Runs xdotool with these words on this screen.
  void xdotool(const std::vector<std::string>& words) const;

 private:
  friend class Window;
  std::string name_;
  std::unique_ptr<_XDisplay, int (*)(_XDisplay*)> display_;
};

/// A top-level window. Points and areas are relative to its inside, without the frame; what the
/// program draws over it, menus and tips among them, is part of its picture.
class Window {
 public:
  Window(const Screen& screen, unsigned long id) : screen_(&screen), id_(id) {}

  [[nodiscard]] std::string title() const;
  /// Where it lies on the screen.
  [[nodiscard]] Area area() const;
  [[nodiscard]] bool shown() const;
  void awaitGone() const;

  void click(Point at, int button = 1) const;
  /// Presses at `from`, moves to `to` in small steps, and releases there.
  void drag(Point from, Point to, int button = 1) const;
  /// Turns the wheel at a point: positive steps away from the user.
  void wheel(Point at, int steps) const;
  /// Moves the pointer to where it is over nothing of the program.
  void leave() const;
  /// Presses keys one after the other, each named as xdotool does: "ctrl+o", "Return".
  void key(const std::vector<std::string>& keys) const;
  void type(const std::string& letters) const;
  /// Puts the window at the screen's top left corner with this size inside.
  void resize(int width, int height) const;
  /// Asks it to close as a window manager does.
  void close() const;

  [[nodiscard]] Image capture() const { return screen_->capture(area()); }
  /// Waits until the picture fulfils `predicate` and returns it; `what` says what was waited for.
  Image awaitPicture(const std::string& what,
                     const std::function<bool(const Image&)>& predicate) const;

 private:
  void sendKeys(std::vector<std::string> words) const;
  [[nodiscard]] std::vector<std::string> moveTo(Point at) const;

  const Screen* screen_;
  unsigned long id_;
};

}  // namespace morvane::gui
