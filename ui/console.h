// What the program says without asking anything.
#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// Appends `text` and a line end to the console strip's text.
void appendConsole(std::string_view text);

/// Says `text` to the operator: in the console strip and for about three seconds over the view's
/// lower edge.
void tellUser(const std::string& text);

}  // namespace morvane
