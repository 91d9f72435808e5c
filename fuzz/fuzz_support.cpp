#include "fuzz/fuzz_support.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "tests/support/temporary_folder.h"

namespace morvane {

void demand(bool holds, const char* promise) {
  if (holds) return;
  std::fprintf(stderr, "A promise does not hold: %s\n", promise);
  std::abort();
}

void demandFinite(std::span<const float> values, const char* promise) {
  demand(std::ranges::all_of(values, [](float value) { return std::isfinite(value); }), promise);
}

std::string fileBesideInput(const std::string& name) {
  static const TemporaryFolder folder;
  return folder.file(name);
}

std::string inputFile(const std::uint8_t* data, std::size_t size) {
  std::string path = fileBesideInput("input");
  std::ofstream file(path, std::ios::binary);
  file.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  file.close();
  demand(file.good(), "the folder of temporary files takes a file");
  return path;
}

}  // namespace morvane
