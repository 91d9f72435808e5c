// The one place where the toolkit-side rooms write a diagnostic line.
#pragma once

#include <string_view>

namespace morvane {

/// The program's log. Kept: callers name a file, as each part once had a log file of its own;
/// everything goes to standard output and the name is ignored.
class DebugLog {
 public:
  /// Writes `text` as a line; a line end of its own is not doubled.
  static void write(std::string_view file, std::string_view text);
};

}  // namespace morvane
