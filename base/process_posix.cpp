#include "base/process.h"

#include <cstdio>

namespace morvane {

std::vector<std::string> commandLine(int argc, char** argv) { return {argv, argv + argc}; }

void openStandardOutput() { std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ); }

}  // namespace morvane
