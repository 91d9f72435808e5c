// The style of the program's buttons, fields and labels.
#pragma once

#include <string>
#include <string_view>

class Fl_Button;
class Fl_Float_Input;

namespace morvane {

/// Black, with the program's button box and a white label.
void styleButton(Fl_Button& button);

/// Black, with white text, cursor and label.
void styleInput(Fl_Float_Input& input);

/// `text` escaped for a label: each of `signs`, which FLTK would read as a symbol or a shortcut, is
/// doubled.
std::string labelText(std::string_view text, std::string_view signs);

}  // namespace morvane
