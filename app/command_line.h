// The options of the command line.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace morvane {

/// Handles the first option on the command line and returns the exit status. Returns nothing if
/// there is no option; then the program opens its window.
std::optional<int> answerOption(const std::vector<std::string>& words);

}  // namespace morvane
