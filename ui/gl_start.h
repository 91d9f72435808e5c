// Whether the driver of the current context can draw the view.
#pragma once

#include <string>

namespace morvane {

/// Loads the functions of the current context. Returns an empty text, or why they do not suffice.
std::string startGl();

}  // namespace morvane
