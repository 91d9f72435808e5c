// Prints each word of its command line as a line, then waits for the end of its standard input, so
// that a test can see whether the lines come while it runs.
#include <iostream>

#include "base/debug_log.h"
#include "base/process.h"

int main(int argc, char** argv) {
  morvane::openStandardStreams(false);
  for (const std::string& word : morvane::commandLine(argc, argv)) {
    morvane::logStream() << word << '\n';
  }
  return std::cin.get() == EOF ? 0 : 1;
}
