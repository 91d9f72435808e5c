// Measures times for the log.
#pragma once

#include <array>
#include <chrono>
#include <cstdio>

#include "base/debug_log.h"

namespace morvane {

class Stopwatch {
 public:
  [[nodiscard]] double milliseconds() const {
    return std::chrono::duration<double, std::milli>(Clock::now() - start_).count();
  }
  /// Logs the elapsed time as `label` + time + " milliseconds".
  void print(const char* label) const {
    std::array<char, 64> time{};
    std::snprintf(time.data(), time.size(), "%.3f milliseconds\n", milliseconds());
    logStream() << label << time.data();
  }

 private:
  using Clock = std::chrono::steady_clock;
  Clock::time_point start_ = Clock::now();
};

}  // namespace morvane
