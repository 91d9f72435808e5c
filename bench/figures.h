// Running benchmarks in turn with their floors and printing each figure as a ratio.
#pragma once

#include <string>
#include <vector>

namespace morvane::bench {

/// A benchmark, the benchmark that is its floor, and what it may cost: `times` × the floor plus
/// `plusMs` milliseconds.
struct Figure {
  std::string name;
  std::string floor;
  double times = 1.0;
  double plusMs = 0.0;
};

/// Runs the registered benchmarks that the arguments select, repetitions interleaved so that a
/// drift of the machine's speed meets a figure and its floor alike, and prints the median of each
/// figure, of its floor, their ratio and the limit. Large blocks of memory come fresh from the
/// system meanwhile, as they do for the first measurement a program opens. Returns the process's
/// exit status: that of a failure when a benchmark reported an error or nothing was measured.
int run(int argc, char** argv, const std::vector<Figure>& figures);

}  // namespace morvane::bench
