#include "base/process.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace morvane {
namespace {

void fillClosedStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    // A new descriptor gets the lowest free number, which is this one.
    if (::fcntl(stream, F_GETFD) < 0) (void)::open("/dev/null", O_RDWR);
  }
}

}  // namespace

std::vector<std::string> commandLine(int argc, char** argv) { return {argv, argv + argc}; }

void openStandardStreams() {
  fillClosedStreams();
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
}

}  // namespace morvane
