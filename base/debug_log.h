// The program's log: lines of text on standard output.
#pragma once

#include <ostream>
#include <string_view>

namespace morvane {

/// The stream of the log. Use it on the GUI thread only. It is line-buffered and never blocks: when
/// the pipe or terminal is full, whole lines are dropped. A line with the number of dropped lines
/// then precedes the next one that is written.
std::ostream& logStream();

enum class LogTarget { kOutput, kErrors, kNowhere };

/// Sends the log to standard output (the default), to standard error, or nowhere. Call this before
/// anything is logged.
void setLogTarget(LogTarget target);

/// A second way to write to the log. Kept: callers name a log file, but the name is ignored and
/// everything goes to the one log.
class DebugLog {
 public:
  /// Writes `text` as a line. Adds a newline unless `text` ends with one.
  static void write(std::string_view file, std::string_view text);
};

}  // namespace morvane
