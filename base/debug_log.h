// The program's log: lines of text on standard output.
#pragma once

#include <ostream>
#include <string_view>

namespace morvane {

/// The stream of the log, for the GUI thread alone. A line is written when it ends. Whoever reads
/// the log cannot hold the program up: a line for which there is no room is left out as a whole,
/// and a line that says how many were precedes the next one that is written.
std::ostream& logStream();

/// The log as some parts of the program call it. Kept: callers name a file, as each part once had a
/// log file of its own; everything goes to the one log and the name is ignored.
class DebugLog {
 public:
  /// Writes `text` as a line; a line end of its own is not doubled.
  static void write(std::string_view file, std::string_view text);
};

}  // namespace morvane
