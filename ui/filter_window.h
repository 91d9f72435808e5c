// The window for the filter's type and cut-offs.
#pragma once

#include <FL/Fl_Double_Window.H>

#include <functional>
#include <string>

#include "base/pixel_area.h"
#include "filter/band_filter.h"

class Fl_Box;
class Fl_Check_Button;
class Fl_Float_Input;

namespace morvane {

/// Its settings last until the program ends. "Apply" does not close it.
class FilterWindow : public Fl_Double_Window {
 public:
  /// Creates the window, hidden.
  FilterWindow();

  /// A click on the label of a type selects it, like a click on its check box.
  int handle(int event) override;

  /// The current settings.
  [[nodiscard]] FilterSettings settings() const;

  /// Updates the window after a change: L2 is enabled for a band pass only, and the hint follows
  /// the settings.
  void takeSettings();
  /// Shows the hint about the current settings in the grey line below the inputs. Returns whether
  /// there is one.
  bool updateHint();
  /// Shows `text` there until a setting changes.
  void showHint(const std::string& text);

  /// Sets its initial place on the screen. Later calls do nothing, so it stays where the operator
  /// moved it.
  void placeOnce(int x, int y);

  std::function<void()> onApply;      ///< "Apply" was pressed
  std::function<ResHeader()> header;  ///< of the surface shown; sizes of 0 without one

 private:
  static Fl_Check_Button* addType(const PixelArea& area, const char* label);
  static Fl_Float_Input* addInput(const PixelArea& area, const char* label);

  Fl_Float_Input* l1_;
  Fl_Float_Input* l2_;
  Fl_Check_Button* highPass_;
  Fl_Check_Button* lowPass_;
  Fl_Check_Button* bandPass_;
  Fl_Box* hint_;
  bool placed_ = false;
};

}  // namespace morvane
