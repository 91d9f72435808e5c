// What the system hands to the program: its command line, and someone who reads its log.
#pragma once

#include <string>
#include <vector>

namespace morvane {

/// The words of the command line in UTF-8, first the program's own path as it was given. `main`'s
/// own arguments are taken where the system has no better ones.
std::vector<std::string> commandLine(int argc, char** argv);

/// Lets whoever started the program read what it writes to standard output when it is written: in
/// the console, through a pipe or in a file. Call before anything is written.
void openStandardOutput();

}  // namespace morvane
