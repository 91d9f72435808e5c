// Copying a file byte for byte.
#pragma once

#include <string>

namespace morvane {

/// Copies `source` to `destination`, which appears only when it is complete. An empty source path
/// gives an empty file. Returns an empty text on success. On failure it returns the system's error
/// message and leaves the destination unchanged.
[[nodiscard]] std::string copyFile(const std::string& source, const std::string& destination);

}  // namespace morvane
