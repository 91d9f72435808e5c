// Runs benchmarks interleaved with their floors and prints each figure as a ratio.
#pragma once

#include <string>
#include <vector>

namespace morvane::bench {

/// A benchmark, the benchmark that is its floor, and its limit: `times` × the floor plus `plusMs`
/// milliseconds.
struct Figure {
  std::string name;
  std::string floor;
  double times = 1.0;
  double plusMs = 0.0;
};

/// Runs the registered benchmarks that the arguments select. Repetitions are interleaved, so that a
/// drift of the machine's speed affects a figure and its floor alike. Prints the medians of each
/// figure and its floor, their ratio and the limit. Large blocks of memory are always requested
/// from the system, as for the first measurement that a program opens. Returns the exit status,
/// which is a failure when a benchmark reported an error or nothing was measured.
int run(int argc, char** argv, const std::vector<Figure>& figures);

}  // namespace morvane::bench
