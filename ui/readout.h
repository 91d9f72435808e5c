// The place and height of the point under the cursor, at the lower edge of the view.
#pragma once

#include <FL/Fl_Window.H>

#include <string>

namespace morvane {

/// A subwindow in the corner of the view, so that it is seen over the picture and costs no frame.
/// Hidden while it is off, and while there is nothing to tell.
class Readout : public Fl_Window {
 public:
  Readout();

  [[nodiscard]] bool isOn() const { return on_; }
  void setOn(bool on);
  /// Shows what is under the cursor now.
  void update();

 protected:
  void draw() override;

 private:
  std::string text_;
  bool on_ = false;
};

}  // namespace morvane
