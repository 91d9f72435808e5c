// The command line and the standard streams.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// The arguments of the command line in UTF-8, starting with the program's path as it was given. On
/// Windows they come from the wide command line, elsewhere from `main`.
std::vector<std::string> commandLine(int argc, char** argv);

/// Makes the standard streams safe to use. A stream that is closed at start is opened on the null
/// device, so that no file opened later gets its descriptor. A reader that closes its pipe cannot
/// end the program. Unless `mayWait` is set, a reader that stops reading cannot block it either,
/// except on Windows. Call this first.
void openStandardStreams(bool mayWait);

/// Writes the first bytes of `text` to standard output without blocking and returns how many. 0
/// when there is no room now (a full pipe, a stopped terminal) or on an error.
std::size_t writeOutput(std::string_view text);

/// The width of the terminal that standard error goes to, in columns; 0 if it is none.
std::size_t errorColumns();

}  // namespace morvane
