#include "surface/statistics.h"

#include "resfile/height_grid.h"

namespace morvane {
HeightMean meanOf(std::span<const double> heights) {
  // Separate loops keep the accumulator in a register.
  float sum = 0.0F;
  std::size_t finite = 0;
  for (const double height : heights) {
    if (isMissing(height)) continue;
    sum = static_cast<float>(sum + height);
    ++finite;
  }
  return {finite == 0 ? 0.0F : sum / static_cast<float>(finite), finite};
}

float varianceOf(std::span<const double> heights, const HeightMean& mean) {
  float sum = 0.0F;
  for (const double height : heights) {
    if (isMissing(height)) continue;
    const double deviation = height - mean.mean;
    sum = static_cast<float>(sum + deviation * deviation);
  }
  return mean.finite == 0 ? 0.0F : sum / static_cast<float>(mean.finite);
}

float automaticScale(float sd, std::size_t width) {
  const double step = sd < 0.2 ? 0.01 : 0.05;
  return static_cast<float>(step * static_cast<double>(width) / sd / 1000.0 / kModelUnitsPerHeight);
}

}  // namespace morvane
