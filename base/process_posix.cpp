#include "base/process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>

namespace morvane {
namespace {

void fillClosedStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    // `open` returns the lowest free descriptor, which is this one. Writing to it fails, as writing
    // to a closed stream does, so that a lost output is noticed.
    if (::fcntl(stream, F_GETFD) < 0) (void)::open("/dev/null", O_RDONLY);
  }
}

/// Reopens a pipe or terminal in non-blocking mode. Setting O_NONBLOCK on the inherited descriptor
/// would change it for every process that shares it.
void neverWaitFor(int stream) {
  struct stat status {};
  const bool isPipe = ::fstat(stream, &status) == 0 && S_ISFIFO(status.st_mode);
  if (!isPipe && ::isatty(stream) == 0) return;
  const std::string path = "/dev/fd/" + std::to_string(stream);
  const int own = ::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (own < 0) return;
  ::dup2(own, stream);
  ::close(own);
}

}  // namespace

std::vector<std::string> commandLine(int argc, char** argv) { return {argv, argv + argc}; }

void openStandardStreams(bool mayWait) {
  fillClosedStreams();
  for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
    if (!mayWait) neverWaitFor(stream);
  }
  // A closed pipe, a file size limit and a terminal that stops background output then only make a
  // single write fail.
  for (const int signal : {SIGPIPE, SIGXFSZ, SIGTTOU}) std::signal(signal, SIG_IGN);
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
}

std::size_t writeOutput(std::string_view text) {
  const std::size_t length = std::min<std::size_t>(text.size(), PIPE_BUF);
  ssize_t written = ::send(STDOUT_FILENO, text.data(), length, MSG_DONTWAIT);
  if (written < 0 && errno == ENOTSOCK) {
    // A pipe that could not be reopened accepts PIPE_BUF bytes without blocking once it is ready.
    pollfd output{STDOUT_FILENO, POLLOUT, 0};
    if (::poll(&output, 1, 0) == 1) written = ::write(STDOUT_FILENO, text.data(), length);
  }
  return written > 0 ? static_cast<std::size_t>(written) : 0;
}

std::size_t errorColumns() {
  constexpr std::size_t kUsual = 80;  // of a terminal that does not say it
  if (::isatty(STDERR_FILENO) == 0) return 0;
  winsize size{};
  const bool known = ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : kUsual;
}

}  // namespace morvane
