// Work that has to wait until the event at hand is done with.
#pragma once

#include <string>

namespace morvane {

/// Calls `action(text)` as soon as the toolkit waits for events again.
void callSoon(void (*action)(const std::string&), const std::string& text);

}  // namespace morvane
