#include "tests/gui/process.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstring>
#include <utility>

namespace morvane::gui {
namespace {

using Clock = std::chrono::steady_clock;

std::array<int, 2> openPipe() {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) throw GuiError("no pipe");
  return ends;
}

}  // namespace

bool eventually(const std::function<bool()>& condition, std::chrono::milliseconds patience) {
  const auto deadline = Clock::now() + patience;
  while (!condition()) {
    if (Clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return true;
}

Process::Process(std::vector<std::string> words) {
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const std::array<int, 2> out = openPipe();
  const std::array<int, 2> err = openPipe();
  const pid_t parent = getpid();
  id_ = fork();
  if (id_ == 0) {
    // A test that is killed must not leave windows behind.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    dup2(out[1], STDOUT_FILENO);
    dup2(err[1], STDERR_FILENO);
    if (getppid() == parent) execvp(arguments[0], arguments.data());
    perror(arguments[0]);
    _exit(127);
  }
  close(out[1]);
  close(err[1]);
  output_.descriptor = out[0];
  errors_.descriptor = err[0];
  if (id_ < 0) throw GuiError("cannot start " + words[0]);
  for (Output* output : {&output_, &errors_}) {
    output->reader = std::thread([this, output] { collect(*output); });
  }
}

Process::~Process() {
  if (running()) {
    kill(id_, SIGKILL);
    waitpid(id_, nullptr, 0);
  }
  for (Output* output : {&output_, &errors_}) {
    if (output->reader.joinable()) output->reader.join();
    close(output->descriptor);
  }
}

void Process::collect(Output& output) {
  std::string rest;
  std::array<char, 4096> piece{};
  for (ssize_t got = 0; (got = read(output.descriptor, piece.data(), piece.size())) > 0;) {
    rest.append(piece.data(), static_cast<std::size_t>(got));
    const std::lock_guard lock(mutex_);
    std::size_t start = 0;
    for (std::size_t end = 0; (end = rest.find('\n', start)) != std::string::npos;
         start = end + 1) {
      output.lines.push_back(rest.substr(start, end - start));
    }
    rest.erase(0, start);
    changed_.notify_all();
  }
  const std::lock_guard lock(mutex_);
  if (!rest.empty()) output.lines.push_back(rest);
  output.ended = true;
  changed_.notify_all();
}

const Process::Output& Process::of(Stream stream) const {
  return stream == Stream::kOutput ? output_ : errors_;
}

std::string Process::awaitLine(std::string_view text, Stream stream) {
  Output& output = stream == Stream::kOutput ? output_ : errors_;
  std::unique_lock lock(mutex_);
  const auto found = [&] {
    for (; output.searched < output.lines.size(); ++output.searched) {
      if (output.lines[output.searched].find(text) != std::string::npos) return true;
    }
    return false;
  };
  changed_.wait_for(lock, kPatience, [&] { return found() || output.ended; });
  if (!found()) {
    throw GuiError("no further line \"" + std::string(text) + '"');
  }
  return output.lines[output.searched++];
}

std::vector<std::string> Process::lines(Stream stream) const {
  const std::lock_guard lock(mutex_);
  return of(stream).lines;
}

bool Process::running() {
  if (!status_) {
    int status = 0;
    if (waitpid(id_, &status, WNOHANG) == id_) {
      status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }
  }
  return !status_;
}

int Process::awaitExit() {
  if (!eventually([this] { return !running(); })) throw GuiError("the process does not end");
  for (Output* output : {&output_, &errors_}) {
    if (output->reader.joinable()) output->reader.join();
  }
  return *status_;
}

void runToEnd(const std::vector<std::string>& words) {
  Process process(words);
  if (process.awaitExit() == 0) return;
  std::string message = words[0] + " failed";
  for (const std::string& line : process.lines(Stream::kErrors)) message += ": " + line;
  throw GuiError(message);
}

}  // namespace morvane::gui
