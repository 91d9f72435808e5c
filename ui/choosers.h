// Alerts and file choosers: the one place where the program waits for an operator's answer.
#pragma once

#include <string>

namespace morvane {

/// Asks for one existing file that fits `filter`, e.g. "*.res". Empty when cancelled.
std::string chooseFileToOpen(const char* filter);

/// Beeps and shows `text` until it is confirmed.
void showAlert(const char* text);

}  // namespace morvane
