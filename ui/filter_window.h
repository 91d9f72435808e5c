// The window in which the filter's type and cut-offs are set.
#pragma once

#include <FL/Fl_Double_Window.H>

#include <functional>
#include <string>

#include "filter/band_filter.h"

class Fl_Box;
class Fl_Check_Button;
class Fl_Float_Input;

namespace morvane {

/// Its settings persist while the program runs. "Apply" leaves it open.
class FilterWindow : public Fl_Double_Window {
 public:
  /// Builds the window, hidden.
  FilterWindow();

  /// A press on the words of a type chooses it as one on its box does.
  int handle(int event) override;

  /// What is typed and chosen now.
  [[nodiscard]] FilterSettings settings() const;

  /// Acts on a setting that has changed: L2 can be typed for a band pass only, and the hint is of
  /// the present settings.
  void takeSettings();
  /// Says in the quiet line below the inputs what is odd about the present settings, and returns
  /// whether anything is.
  bool updateHint();
  /// Says `text` there until something is set.
  void showHint(const std::string& text);

  /// Gives it its first place on the screen; later it stays where the operator has put it.
  void placeOnce(int x, int y);

  std::function<void()> onApply;      ///< "Apply" was pressed
  std::function<ResHeader()> header;  ///< of the surface on show; sizes of 0 without one

 private:
  static Fl_Check_Button* addType(int y, const char* label);
  static Fl_Float_Input* addInput(int y, const char* label);

  Fl_Float_Input* l1_;
  Fl_Float_Input* l2_;
  Fl_Check_Button* highPass_;
  Fl_Check_Button* lowPass_;
  Fl_Check_Button* bandPass_;
  Fl_Box* hint_;
  bool placed_ = false;
};

}  // namespace morvane
