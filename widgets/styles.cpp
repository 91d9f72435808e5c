#include "widgets/styles.h"

#include <FL/Fl_Button.H>
#include <FL/Fl_Float_Input.H>

#include "widgets/button_box.h"
#include "widgets/look.h"

namespace morvane {

void styleButton(Fl_Button& button) {
  button.box(buttonBox());
  button.down_box(buttonBox());
  button.color(kBlack, kBlack);
  button.labelcolor(kWhite);
}

void styleInput(Fl_Float_Input& input) {
  input.color(kBlack);
  input.textcolor(kWhite);
  input.cursor_color(kWhite);
  input.labelcolor(kWhite);
}

std::string labelText(std::string_view text, std::string_view signs) {
  std::string masked;
  for (const char c : text) {
    if (signs.find(c) != std::string_view::npos) masked += c;
    masked += c;
  }
  return masked;
}

}  // namespace morvane
