// Deferred work, for when the current event has been handled.
#pragma once

#include <string>

namespace morvane {

/// Calls `action(text)` when FLTK next waits for events.
void callSoon(void (*action)(const std::string&), const std::string& text);

}  // namespace morvane
