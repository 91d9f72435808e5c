// A rectangle of grid points.
#pragma once

#include <cstddef>

namespace morvane {

struct GridRegion {
  std::size_t column = 0;
  std::size_t row = 0;
  std::size_t width = 0;
  std::size_t height = 0;
};

}  // namespace morvane
