// The program without a window: from the command line to files.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace morvane {

/// Whether a command line has options, so that the program opens no window.
bool hasOptions(const std::vector<std::string>& words);

/// Does what the options in `words` ask for and returns the exit status. Returns nothing if there
/// is no option; then the program opens its window. `exeFolder` has the resources.
std::optional<int> runBatch(const std::vector<std::string>& words, const std::string& exeFolder);

}  // namespace morvane
