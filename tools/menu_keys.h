// The keys that choose an entry of the program's menu, for tests and benchmarks.
#pragma once

#include <string>
#include <vector>

namespace morvane {

/// The keys that choose `entry`, e.g. "Tools/Filter Settings", in a menu bar with these `paths`
/// (see `menuPaths`): Alt with the underlined letter, then arrows, then Return. They are named as
/// xdotool names them: "alt+T", "Down". They come in groups, each of which opens the menu for the
/// next one. Empty if there is no such entry.
std::vector<std::vector<std::string>> menuKeys(const std::vector<std::string>& paths,
                                               const std::string& entry);

}  // namespace morvane
