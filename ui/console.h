// Messages to the operator that need no answer.
#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// Appends `text` and a newline to the console strip.
void appendConsole(std::string_view text);

/// Shows `text` to the operator: in the console strip, and for about three seconds at the lower
/// edge of the view.
void tellUser(const std::string& text);

}  // namespace morvane
