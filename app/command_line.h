// The options of the command line.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace morvane {

/// Answers the first option among the words of the command line and returns the exit status to end
/// with. Nothing when there is no option: the window is to open.
std::optional<int> answerOption(const std::vector<std::string>& words);

}  // namespace morvane
