// Small height grids for tests.
#pragma once

#include <functional>
#include <memory>
#include <random>
#include <vector>

#include "resfile/height_grid.h"

namespace morvane {

inline std::shared_ptr<HeightGrid> gridOf(std::size_t width, std::size_t height,
                                          const std::vector<double>& values) {
  auto grid =
      HeightGrid::zeroed(static_cast<std::int64_t>(width), static_cast<std::int64_t>(height));
  std::copy(values.begin(), values.end(), grid->values().begin());
  return grid;
}

/// The surface whose height at (column, row) is `height`.
inline std::shared_ptr<HeightGrid> gridFrom(std::size_t columns, std::size_t rows,
                                            const std::function<double(double, double)>& height) {
  std::vector<double> values;
  for (std::size_t row = 0; row < rows; ++row) {
    for (std::size_t column = 0; column < columns; ++column) {
      values.push_back(height(static_cast<double>(column), static_cast<double>(row)));
    }
  }
  return gridOf(columns, rows, values);
}

/// Random heights between −5 and 5. Grids of the same size have the same heights.
inline std::shared_ptr<HeightGrid> roughGrid(std::size_t width, std::size_t height) {
  std::mt19937 random(static_cast<unsigned>(width * 1009 + height));
  std::vector<double> values(width * height);
  for (double& value : values) value = static_cast<double>(random()) / 429496729.6 - 5.0;
  return gridOf(width, height, values);
}

}  // namespace morvane
