// What the system hands to the program: its command line, and someone who reads its log.
#pragma once

#include <string>
#include <vector>

namespace morvane {

/// The words of the command line in UTF-8, first the program's own path as it was given. `main`'s
/// own arguments are taken where the system has no better ones.
std::vector<std::string> commandLine(int argc, char** argv);

/// Makes the standard streams safe to use. One that the starter closed leads to the null device, so
/// that nothing opened later gets its number. Lines written to standard output can be read at once:
/// in the console, through a pipe or in a file. Call first of all.
void openStandardStreams();

}  // namespace morvane
