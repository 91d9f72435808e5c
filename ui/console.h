// The console strip's text.
#pragma once

#include <string_view>

namespace morvane {

/// Appends `text` and a line end to the console text.
void appendConsole(std::string_view text);

}  // namespace morvane
