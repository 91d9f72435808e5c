// What the code under test writes to the log, and what other programs print.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <sstream>
#include <string>

#include "base/debug_log.h"

namespace morvane {

/// Collects the lines of the log while it lives.
class CollectedOutput {
 public:
  CollectedOutput() : previous_(logStream().rdbuf(text_.rdbuf())) {}
  ~CollectedOutput() { logStream().rdbuf(previous_); }
  CollectedOutput(const CollectedOutput&) = delete;
  CollectedOutput& operator=(const CollectedOutput&) = delete;

  [[nodiscard]] std::string text() const { return text_.str(); }

 private:
  std::ostringstream text_;
  std::streambuf* previous_;
};

/// The standard output of a command. If the command fails, so does the test.
inline std::string outputOf(const std::string& command) {
  std::string text;
  std::FILE* pipe = popen(command.c_str(), "r");
  std::array<char, 4096> piece{};
  while (const std::size_t got = std::fread(piece.data(), 1, piece.size(), pipe)) {
    text.append(piece.data(), got);
  }
  EXPECT_EQ(pclose(pipe), 0) << command;
  return text;
}

}  // namespace morvane
