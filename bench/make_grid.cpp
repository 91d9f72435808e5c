// Writes a square measurement of waves: make_grid SIDE FILE.
#include <cmath>
#include <cstdlib>
#include <iostream>

#include "tools/measurement_builder.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "make_grid SIDE FILE\n";
    return 2;
  }
  morvane::MeasurementContent content;
  const auto side = static_cast<std::int32_t>(std::strtol(argv[1], nullptr, 10));
  content.width = side;
  content.height = side;
  for (int r = 0; r < side; ++r) {
    for (int c = 0; c < side; ++c) {
      content.heights.push_back(2.0 * std::sin(c * 0.02) + std::cos(r * 0.05));
    }
  }
  morvane::writeBytes(argv[2], morvane::encodeMeasurement(content));
}
