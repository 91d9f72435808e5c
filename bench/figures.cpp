#include "bench/figures.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <map>

namespace morvane::bench {
namespace {

/// Records the time of every repetition in milliseconds, besides the usual output.
class Collector : public benchmark::ConsoleReporter {
 public:
  Collector() : ConsoleReporter(OO_None) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.error_occurred) {
        failed_ = true;
      } else if (run.run_type == Run::RT_Iteration) {
        times_[run.run_name.function_name].push_back(run.GetAdjustedRealTime());
      }
    }
    ConsoleReporter::ReportRuns(runs);
  }

  [[nodiscard]] bool failed() const { return failed_; }
  [[nodiscard]] bool has(const std::string& name) const { return times_.contains(name); }

  [[nodiscard]] double median(const std::string& name) const {
    std::vector<double> times = times_.at(name);
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
  }

 private:
  std::map<std::string, std::vector<double>> times_;
  bool failed_ = false;
};

void printFigure(const Figure& figure, const Collector& collector) {
  const double time = collector.median(figure.name);
  const double floor = collector.median(figure.floor);
  const double limit = figure.times * floor + figure.plusMs;
  std::printf("%-16s %11.2f %11.2f %7.2f %11.2f%s\n", figure.name.c_str(), time, floor,
              time / floor, limit, time > limit ? "  over" : "");
}

}  // namespace

int run(int argc, char** argv, const std::vector<Figure>& figures) {
  std::vector<char*> arguments(argv, argv + argc);
  std::string interleave = "--benchmark_enable_random_interleaving=true";
  arguments.insert(arguments.begin() + 1, interleave.data());
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return EXIT_FAILURE;

  // Otherwise the allocator reuses a freed block in the next repetition, without new page faults.
  constexpr int kLargeBlock = 1 << 20;
  mallopt(M_MMAP_THRESHOLD, kLargeBlock);
  Collector collector;
  benchmark::RunSpecifiedBenchmarks(&collector);

  std::printf("\n%-16s %11s %11s %7s %11s\n", "median", "figure ms", "floor ms", "ratio",
              "limit ms");
  bool measured = false;
  for (const Figure& figure : figures) {
    if (!collector.has(figure.name) || !collector.has(figure.floor)) continue;
    printFigure(figure, collector);
    measured = true;
  }
  return collector.failed() || !measured ? EXIT_FAILURE : EXIT_SUCCESS;
}

}  // namespace morvane::bench
