// The program's own look of buttons, fields and their texts.
#pragma once

#include <string>
#include <string_view>

class Fl_Button;
class Fl_Float_Input;

namespace morvane {

/// Black, with the program's button box, up and pressed, and a white label.
void styleButton(Fl_Button& button);

/// Black, with white text, cursor and label.
void styleInput(Fl_Float_Input& input);

/// `text` as a label shows it unchanged: each of `signs`, which the toolkit would take for a symbol
/// or a shortcut, is doubled.
std::string labelText(std::string_view text, std::string_view signs);

}  // namespace morvane
