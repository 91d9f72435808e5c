// A child process of a test, and what it prints.
#pragma once

#include <sys/types.h>

#include <array>
#include <chrono>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace morvane::gui {

/// Thrown when an awaited event does not come or something cannot be done.
class GuiError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// How long a test waits for an event. Only a test that fails waits so long.
inline constexpr std::chrono::seconds kPatience{20};

/// Polls `condition` until it holds; false after the time limit `patience`.
bool eventually(const std::function<bool()>& condition,
                std::chrono::milliseconds patience = kPatience);

enum class Stream { kOutput, kErrors };

/// Starts with construction. Killed at destruction, or when the test dies.
class Process {
 public:
  /// `words` are the program, which is searched for in $PATH, and its arguments.
  explicit Process(std::vector<std::string> words);
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  [[nodiscard]] pid_t id() const { return id_; }

  /// Waits for a line that contains `text` and returns it. Each stream is searched from the line
  /// after the last one found there, so that successive calls find successive lines.
  std::string awaitLine(std::string_view text, Stream stream = Stream::kOutput);

  /// The lines printed so far, without an incomplete last one while the process runs.
  [[nodiscard]] std::vector<std::string> lines(Stream stream = Stream::kOutput) const;

  /// Waits for the end and returns the exit status, or minus the signal that ended it.
  int awaitExit();

  /// False once the process has ended.
  [[nodiscard]] bool running();

 private:
  [[nodiscard]] std::string fileOf(Stream stream) const;

  TemporaryFolder folder_;  // with a file for each stream
  pid_t id_ = -1;
  std::optional<int> status_;
  std::array<std::size_t, 2> searched_{};  // lines of each
};

/// Runs a program to its end. Throws with its error output if it fails.
void runToEnd(const std::vector<std::string>& words);

}  // namespace morvane::gui
