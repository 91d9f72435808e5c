// The status line at the lower edge of the view.
#pragma once

#include <FL/Fl_Window.H>

#include <string>

namespace morvane {

/// A subwindow of the main window, so that it is visible over both the logo and the GL view. It
/// disappears after a while, or at a mouse press or wheel event on it.
class StatusLine : public Fl_Window {
 public:
  StatusLine();

  /// Shows `text` for about three seconds.
  void say(const std::string& text);
  /// Shows `text` until `release`. It is on the screen when this returns.
  void hold(const std::string& text);
  /// Hides a held text once drawing has finished.
  void release();
  /// Moves to the lower edge of the view, in front of it.
  void place();

  int handle(int event) override;

 protected:
  void draw() override;

 private:
  void put(const std::string& text);
  void showInPlace();
  static void expire(void* line);

  std::string text_;   // as passed by the caller
  std::string lines_;  // wrapped, as shown
  bool held_ = false;
};

}  // namespace morvane
