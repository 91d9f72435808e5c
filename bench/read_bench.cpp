// Reading a measurement against one fread of the same bytes.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/little_endian.h"
#include "base/safe_file.h"
#include "bench/figures.h"
#include "resfile/res_file.h"
#include "tools/usage.h"

namespace {

using namespace morvane;

struct FreeMemory {
  void operator()(void* memory) const { std::free(memory); }
};

std::string fileOf(std::int32_t side) {
  const std::string path =
      (std::filesystem::temp_directory_path() / ("read_bench_" + std::to_string(side) + ".res"))
          .string();
  const std::size_t heights = static_cast<std::size_t>(side) * static_cast<std::size_t>(side) * 8;
  std::vector<std::byte> bytes(kHeaderBytes + heights, std::byte{0x3F});
  writeLe(bytes.data(), kNumTypeDoubles);
  writeLe(bytes.data() + 4, side);
  writeLe(bytes.data() + 8, side);
  writeLe(bytes.data() + 20, std::int32_t{4});
  SafeFile file(path);
  file.write(bytes.data(), bytes.size());
  const std::string reason = file.commit();
  if (!reason.empty()) throw std::runtime_error(reason);
  return path;
}

void readFile(benchmark::State& state, const std::string& path) {
  std::ostream silent(nullptr);
  resFile file(silent);
  file.update(path);  // into the page cache
  for (auto _ : state) {
    file.update(path);
    benchmark::DoNotOptimize(file.grid()->values().data());
  }
  if (!file.isValid()) state.SkipWithError("the file was not read");
}

void plainRead(const std::string& path) {
  const std::size_t bytes = std::filesystem::file_size(path);
  const std::unique_ptr<void, FreeMemory> buffer(std::malloc(bytes));
  const FilePtr file(std::fopen(path.c_str(), "rb"));
  benchmark::DoNotOptimize(std::fread(buffer.get(), 1, bytes, file.get()));
}

void readFloor(benchmark::State& state, const std::string& path) {
  plainRead(path);
  for (auto _ : state) plainRead(path);
}

}  // namespace

int main(int argc, char** argv) {
  constexpr const char* kUse =
      "read_bench [OPTION...]\n"
      "Measures reading a measurement beside its floor.\n"
      "The options are those of Google Benchmark, e.g. --benchmark_filter=read_8MB.";
  if (const auto status = morvane::toldUse(argc, argv, true, kUse)) return *status;
  std::vector<morvane::bench::Figure> figures;
  std::vector<std::string> paths;
  const auto add = [&paths](const std::string& name, auto function) {
    benchmark::RegisterBenchmark(name.c_str(), function, paths.back())
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Repetitions(11)
        ->MinTime(0.1);
  };
  for (const std::int32_t side : {1000, 4000}) {
    paths.push_back(fileOf(side));
    const std::string megabytes = std::to_string(side / 1000 * side / 1000 * 8) + "MB";
    figures.push_back({"read_" + megabytes, "fread_" + megabytes, 1.5});
    add(figures.back().name, readFile);
    add(figures.back().floor, readFloor);
  }
  const int status = morvane::bench::run(argc, argv, figures);
  for (const std::string& path : paths) std::filesystem::remove(path);
  return status;
}
