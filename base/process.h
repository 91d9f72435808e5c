// What the system hands to the program: its command line and its standard streams.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// The words of the command line in UTF-8, first the program's own path as it was given. `main`'s
/// own arguments are taken where the system has no better ones.
std::vector<std::string> commandLine(int argc, char** argv);

/// Makes the standard streams safe to use. One that the starter closed leads to the null device, so
/// that nothing opened later gets its number. A reader that reads no further can neither end the
/// program nor, except on Windows, make it wait. Call first of all.
void openStandardStreams();

/// Writes the first bytes of `text` to standard output and returns how many. 0 when there is no
/// room now (a full pipe, a stopped terminal) or on any error.
std::size_t writeOutput(std::string_view text);

}  // namespace morvane
