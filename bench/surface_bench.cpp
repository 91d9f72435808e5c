// Statistics and mesh of a surface against what the memory alone costs.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <ostream>
#include <string>
#include <thread>

#include "base/memory_advice.h"
#include "bench/figures.h"
#include "surface/surface_model.h"
#include "tools/usage.h"

namespace {

using namespace morvane;

std::shared_ptr<const HeightGrid> wavyGrid(std::size_t side) {
  auto grid = HeightGrid::zeroed(static_cast<std::int64_t>(side), static_cast<std::int64_t>(side));
  for (std::size_t i = 0; i < grid->count(); ++i) {
    const auto c = static_cast<double>(i % side);
    const auto r = static_cast<double>(i / side);
    grid->values()[i] = 2.0 * std::sin(c * 0.02) + std::cos(r * 0.05) + 0.1 * std::sin(c * r);
  }
  return grid;
}

void statistics(benchmark::State& state, const std::shared_ptr<const HeightGrid>& grid) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(varianceOf(grid->values(), meanOf(grid->values())));
  }
}

// Two plain passes of the same arithmetic, without the check for missing points.
void statisticsFloor(benchmark::State& state, const std::shared_ptr<const HeightGrid>& grid) {
  for (auto _ : state) {
    float sum = 0.0F;
    for (const double height : grid->values()) sum = static_cast<float>(sum + height);
    const float mean = sum / static_cast<float>(grid->count());
    float squares = 0.0F;
    for (const double height : grid->values()) {
      squares = static_cast<float>(squares + (height - mean) * (height - mean));
    }
    benchmark::DoNotOptimize(squares);
  }
}

struct FreshArrays {
  explicit FreshArrays(std::size_t cells)
      : vertexFloats(cells * kFloatsPerCell), faceFloats(cells * kFaceFloatsPerCell) {
    for (Pages& array : vertices) array = freshPages(vertexFloats * sizeof(float));
    faces = freshPages(faceFloats * sizeof(float));
  }
  static std::span<float> floats(const Pages& pages, std::size_t count) {
    return {reinterpret_cast<float*>(pages.get()), count};
  }
  [[nodiscard]] MeshArrays mesh() const {
    return {floats(vertices[0], vertexFloats), floats(vertices[1], vertexFloats),
            floats(vertices[2], vertexFloats), floats(faces, faceFloats)};
  }
  std::size_t vertexFloats, faceFloats;
  Pages vertices[3];
  Pages faces;
};

void fillWithTwoThreads(const MeshArrays& mesh) {
  const auto fillHalf = [&mesh](bool first) {
    for (const std::span<float> part :
         {mesh.positions, mesh.normals, mesh.colours, mesh.faceNormals}) {
      const std::size_t half = part.size() / 2;
      std::ranges::fill(first ? part.first(half) : part.subspan(half), 1.0F);
    }
  };
  std::jthread other(fillHalf, true);
  fillHalf(false);
}

/// Touches as much memory as a build needs and frees it. A virtual machine returns idle memory to
/// its host, and getting it back would take several times as long as what is measured.
void wakeMemory(const HeightGrid& grid) { fillWithTwoThreads(FreshArrays(cellCount(grid)).mesh()); }

void build(benchmark::State& state, const std::shared_ptr<const HeightGrid>& grid) {
  std::ostream silent(nullptr);
  SurfaceModel model(silent);
  model.setRaw(grid);
  model.measure();  // the statistics, which are measured separately and computed once per grid
  wakeMemory(*grid);
  for (auto _ : state) {
    const FreshArrays arrays(cellCount(*grid));
    model.measure();
    model.build(arrays.mesh());
    benchmark::ClobberMemory();
  }
}

void buildFloor(benchmark::State& state, const std::shared_ptr<const HeightGrid>& grid) {
  wakeMemory(*grid);
  for (auto _ : state) {
    const FreshArrays arrays(cellCount(*grid));
    fillWithTwoThreads(arrays.mesh());
    benchmark::ClobberMemory();
  }
}

template <typename Function>
void add(const std::string& name, Function function,
         const std::shared_ptr<const HeightGrid>& grid) {
  benchmark::RegisterBenchmark(name.c_str(), function, grid)
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime()
      ->Repetitions(9)
      ->MinTime(0.05);
}

}  // namespace

int main(int argc, char** argv) {
  constexpr const char* kUse =
      "surface_bench [OPTION...]\n"
      "Measures statistics and surface build beside its floor.\n"
      "The options are those of Google Benchmark, e.g. --benchmark_filter=build_1000.";
  if (const auto status = morvane::toldUse(argc, argv, true, kUse)) return *status;
  constexpr double kMsPerMillionPoints = 15.0;
  std::vector<morvane::bench::Figure> figures;
  for (const std::size_t side : {1000U, 2000U, 4000U}) {
    const auto grid = wavyGrid(side);
    const std::string size = std::to_string(side);
    const double millions = static_cast<double>(grid->count()) / 1e6;
    figures.push_back({"statistics_" + size, "two_passes_" + size, 1.2});
    add(figures.back().name, statistics, grid);
    add(figures.back().floor, statisticsFloor, grid);
    figures.push_back({"build_" + size, "fill_" + size, 1.5, kMsPerMillionPoints * millions});
    add(figures.back().name, build, grid);
    add(figures.back().floor, buildFloor, grid);
  }
  return morvane::bench::run(argc, argv, figures);
}
