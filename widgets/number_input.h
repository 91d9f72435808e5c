// A number field that accepts a comma as the decimal separator.
#pragma once

#include <FL/Fl.H>
#include <FL/Fl_Float_Input.H>

#include <algorithm>
#include <string>
#include <utility>

namespace morvane {

/// FLTK's field ignores a comma, so "0,8" would silently become 08. Here a typed or pasted comma
/// becomes a point.
class NumberInput : public Fl_Float_Input {
 public:
  using Fl_Float_Input::Fl_Float_Input;
  int handle(int event) override {
    if ((event != FL_KEYBOARD && event != FL_PASTE) || Fl::event_text() == nullptr) {
      return Fl_Float_Input::handle(event);
    }
    std::string text(Fl::event_text(), static_cast<std::size_t>(Fl::event_length()));
    std::replace(text.begin(), text.end(), ',', '.');
    char* const own = std::exchange(Fl::e_text, text.data());
    const int handled = Fl_Float_Input::handle(event);
    Fl::e_text = own;
    return handled;
  }
};

}  // namespace morvane
