// Copying a file byte for byte.
#pragma once

#include <string>

namespace morvane {

/// Copies `source` to `destination`, which appears only when it is complete. An empty source path
/// gives an empty file. Empty on success, else the system's reason; then the destination is as it
/// was before.
[[nodiscard]] std::string copyFile(const std::string& source, const std::string& destination);

}  // namespace morvane
