#include "tests/gui/process.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <sstream>
#include <thread>

namespace morvane::gui {

using Clock = std::chrono::steady_clock;

bool eventually(const std::function<bool()>& condition, std::chrono::milliseconds patience) {
  const auto deadline = Clock::now() + patience;
  while (!condition()) {
    if (Clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return true;
}

Process::Process(std::vector<std::string> words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const std::array<std::string, 2> paths = {fileOf(Stream::kOutput), fileOf(Stream::kErrors)};
  const pid_t parent = getpid();
  id_ = fork();
  if (id_ == 0) {
    // A test that is killed must not leave windows behind.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (const int stream : {0, 1}) {
      const int file = open(paths[static_cast<std::size_t>(stream)].c_str(),
                            O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
      dup2(file, STDOUT_FILENO + stream);
    }
    if (getppid() == parent) execvp(arguments[0], arguments.data());
    perror(arguments[0]);
    _exit(127);
  }
  if (id_ < 0) throw GuiError("cannot start " + words[0]);
}

Process::~Process() {
  if (!running()) return;
  kill(id_, SIGKILL);
  waitpid(id_, nullptr, 0);
}

std::string Process::fileOf(Stream stream) const {
  return folder_.file(stream == Stream::kOutput ? "output" : "errors");
}

std::string Process::awaitLine(std::string_view text, Stream stream) {
  std::size_t& searched = searched_[stream == Stream::kOutput ? 0 : 1];
  std::optional<std::string> found;
  (void)eventually([&] {
    const bool last = !running();  // asked first, so that no line printed before is missed
    const std::vector<std::string> all = lines(stream);
    while (!found && searched < all.size()) {
      const std::string& line = all[searched++];
      if (line.find(text) != std::string::npos) found = line;
    }
    return found || last;
  });
  if (!found) throw GuiError("no further line \"" + std::string(text) + '"');
  return *found;
}

std::vector<std::string> Process::lines(Stream stream) const {
  std::vector<std::string> all;
  std::istringstream printed(contentOf(fileOf(stream)));
  // While the process runs, the last line may be incomplete.
  for (std::string line; std::getline(printed, line) && (status_ || !printed.eof());) {
    all.push_back(line);
  }
  return all;
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
