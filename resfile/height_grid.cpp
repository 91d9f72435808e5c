#include "resfile/height_grid.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "base/memory_advice.h"

namespace morvane {

void HeightGrid::Free::operator()(double* memory) const { std::free(memory); }

std::shared_ptr<HeightGrid> HeightGrid::zeroed(std::int64_t width, std::int64_t height) {
  constexpr std::int64_t kMax = std::numeric_limits<std::int32_t>::max();
  if (width < 0 || height < 0 || width > kMax || height > kMax || width * height > kMax) {
    return nullptr;
  }
  const auto count = static_cast<std::size_t>(width * height);
  // calloc: when a short file announces a huge grid, the pages without data are never touched.
  auto* memory = static_cast<double*>(std::calloc(count > 0 ? count : 1, sizeof(double)));
  if (memory == nullptr) return nullptr;
  adviseHugePages(memory, count * sizeof(double));
  return std::shared_ptr<HeightGrid>(new HeightGrid(
      static_cast<std::size_t>(width), static_cast<std::size_t>(height), Memory(memory)));
}

std::optional<std::size_t> HeightGrid::firstFinite() const {
  const auto found = std::ranges::find_if_not(values(), isMissing);
  if (found == values().end()) return std::nullopt;
  return static_cast<std::size_t>(found - values().begin());
}

}  // namespace morvane
