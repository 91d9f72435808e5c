// The band filter against the bare transform and its inverse.
#include <benchmark/benchmark.h>
#include <fftw3.h>

#include <cmath>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/memory_advice.h"
#include "bench/figures.h"
#include "filter/band_filter.h"
#include "tools/usage.h"

namespace {

using namespace morvane;
using Grid = std::shared_ptr<HeightGrid>;

Grid gridOf(std::size_t side) {
  return HeightGrid::zeroed(static_cast<std::int64_t>(side), static_cast<std::int64_t>(side));
}

Grid wavyGrid(std::size_t side) {
  const Grid grid = gridOf(side);
  for (std::size_t i = 0; i < grid->count(); ++i) {
    const auto c = static_cast<double>(i % side);
    const auto r = static_cast<double>(i / side);
    grid->values()[i] = 2.0 * std::sin(c * 0.02) + std::cos(r * 0.05) + 0.1 * std::sin(c * r);
  }
  return grid;
}

void filter(benchmark::State& state, const Grid& grid, FilterType type) {
  const auto side = static_cast<int>(grid->width());
  for (auto _ : state) {
    const Grid output = gridOf(grid->width());
    if (!filterGrid(grid->values(), output->values(), side, side, 0.15F, 0.15F, 2.0F, 2.0F, 0.01F,
                    0.01F, type)) {
      state.SkipWithError("no memory");
      break;
    }
    benchmark::ClobberMemory();
  }
}

// Both use the same kind of memory, including huge pages, so that only the work differs.
void bareTransforms(benchmark::State& state, const Grid& grid) {
  const auto side = static_cast<int>(grid->width());
  for (auto _ : state) {
    const Grid output = gridOf(grid->width());
    const std::size_t count = spectrumColumns(side) * grid->height();
    fftw_complex* spectrum = fftw_alloc_complex(count);
    adviseHugePages(spectrum, count * sizeof(fftw_complex));
    const fftw_plan forward =
        fftw_plan_dft_r2c_2d(side, side, grid->values().data(), spectrum, FFTW_ESTIMATE);
    fftw_execute(forward);
    fftw_destroy_plan(forward);
    const fftw_plan back =
        fftw_plan_dft_c2r_2d(side, side, spectrum, output->values().data(), FFTW_ESTIMATE);
    fftw_execute(back);
    fftw_destroy_plan(back);
    fftw_free(spectrum);
    benchmark::ClobberMemory();
  }
}

template <typename Function, typename... Arguments>
void add(const std::string& name, Function function, const Arguments&... arguments) {
  benchmark::RegisterBenchmark(name.c_str(), function, arguments...)
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime()
      ->Repetitions(9)
      ->MinTime(0.05);
}

}  // namespace

int main(int argc, char** argv) {
  constexpr const char* kUse =
      "filter_bench [OPTION...]\n"
      "Measures filtering beside its floor.\n"
      "The options are those of Google Benchmark, e.g. --benchmark_filter=low_1000.";
  if (const auto status = morvane::toldUse(argc, argv, true, kUse)) return *status;
  constexpr double kLimit = 1.4;
  std::vector<morvane::bench::Figure> figures;
  for (const std::size_t side : {1000U, 2000U, 4000U}) {
    const Grid grid = wavyGrid(side);
    const std::string size = std::to_string(side);
    add("transforms_" + size, bareTransforms, grid);
    for (const auto& [name, type] : {std::pair{"high_", FilterType::kHighPass},
                                     {"low_", FilterType::kLowPass},
                                     {"band_", FilterType::kBandPass}}) {
      figures.push_back({name + size, "transforms_" + size, kLimit});
      add(figures.back().name, filter, grid, type);
    }
  }
  return morvane::bench::run(argc, argv, figures);
}
