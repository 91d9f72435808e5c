// Writes a square measurement of waves.
#include <cmath>
#include <cstdlib>

#include "tools/measurement_builder.h"
#include "tools/usage.h"

int main(int argc, char** argv) {
  constexpr const char* kUse =
      "make_grid SIDE FILE\n"
      "Writes a measurement of SIDE x SIDE points.";
  if (const auto status = morvane::toldUse(argc, argv, argc == 3, kUse)) return *status;
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
