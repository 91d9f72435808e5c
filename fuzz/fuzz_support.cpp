#include "fuzz/fuzz_support.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "tests/support/temporary_folder.h"

namespace morvane {

void require(bool holds, const char* invariant) {
  if (holds) return;
  std::fprintf(stderr, "Invariant violated: %s\n", invariant);
  std::abort();
}

void requireFinite(std::span<const float> values, const char* invariant) {
  require(std::ranges::all_of(values, [](float value) { return std::isfinite(value); }), invariant);
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
  require(file.good(), "the input file is written");
  return path;
}

}  // namespace morvane
