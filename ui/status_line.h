// The line at the lower edge of the view in which the program says what it has done.
#pragma once

#include <FL/Fl_Window.H>

#include <string>

namespace morvane {

/// A window within the main one, so that it shows over logo and GL view alike. It goes by itself,
/// or at the first press or turn of the wheel on it.
class StatusLine : public Fl_Window {
 public:
  StatusLine();

  /// Shows `text` for about three seconds.
  void say(const std::string& text);
  /// Shows `text`, on the screen before this returns, until `release`.
  void hold(const std::string& text);
  /// Takes what is held from the screen as soon as what is being drawn is done.
  void release();
  /// Keeps to the view's lower edge, where that is now, and in front of it.
  void place();

  int handle(int event) override;

 protected:
  void draw() override;

 private:
  void put(const std::string& text);
  void stand();
  static void expire(void* line);

  std::string text_;   // as it was given
  std::string lines_;  // as it is shown
  bool held_ = false;
};

}  // namespace morvane
