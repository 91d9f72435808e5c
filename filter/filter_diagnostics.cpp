#include "filter/filter_diagnostics.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <new>
#include <vector>

#include "base/file_io.h"
#include "base/little_endian.h"
#include "base/number_text.h"
#include "base/safe_file.h"
#include "filter/gaussian_weights.h"

namespace morvane {
namespace {

constexpr float kFourPiSquared = 39.47842F;

/// Weights of the wave numbers 0 to `size` / 2 and, with `negative`, then of the negative ones.
std::vector<double> axisWeights(int size, bool negative, float cut, float pixel) {
  std::vector<int> waves;
  for (int k = 0; k <= size / 2; ++k) waves.push_back(k);
  if (negative) {
    for (int m = (-size) / 2 + 1; m < 0; ++m) waves.push_back(m);
    waves.resize(static_cast<std::size_t>(size), 0);
  }
  const float length = static_cast<float>(size) * pixel;
  const float s = cut / length;
  std::vector<double> weights;
  for (const int wave : waves) {
    const float f = static_cast<float>(wave) / length;
    const float exponent = -kFourPiSquared * (s * s) * (f * f);
    // As in the filter: without a valid cut-off everything passes.
    weights.push_back(std::isnan(exponent) ? 1.0F : std::exp(exponent));
  }
  return weights;
}

std::string writeTable(std::span<const double> weights, std::size_t columns) {
  SafeFile table("fg_export.csv");
  for (std::size_t i = 0; i < weights.size(); ++i) {
    std::string text = fixedText(weights[i], 6) + ",";
    if ((i + 1) % columns == 0) text += '\n';
    table.write(text.data(), text.size());
  }
  return table.commit();
}

FilePtr openRaw(const std::string& path, std::ostream& errors) {
  FilePtr file = openForReading(path);
  if (!file) errors << "File error\n";
  return file;
}

HeaderBytes headOf(std::FILE* file) {
  HeaderBytes head{};
  (void)std::fread(head.data(), 1, head.size(), file);
  return head;
}

}  // namespace

std::string exportGaussianWeights(std::span<double> weights, int nx, int ny, float cutX, float cutY,
                                  float pixelX, float pixelY) {
  if (nx < 1 || ny < 1 || weights.size() != spectrumColumns(nx) * static_cast<std::size_t>(ny)) {
    return "The weights do not have the size of the grid.";
  }
  try {
    const std::vector<double> columns = axisWeights(nx, false, cutX, pixelX);
    const std::vector<double> rows = axisWeights(ny, true, cutY, pixelY);
    auto out = weights.begin();
    float largest = 0.0F;
    for (const double ofRow : rows) {
      for (const double ofColumn : columns) {
        *out = ofRow * ofColumn;
        if (*out > largest) largest = static_cast<float>(*out);
        ++out;
      }
    }
    for (double& weight : weights) weight /= weightDivisor(largest);
    return writeTable(weights, columns.size());
  } catch (const std::bad_alloc&) {
    return "There is not enough memory.";
  }
}

bool readRawHead(const std::string& path, HeaderBytes& head, std::ostream& errors) {
  const FilePtr file = openRaw(path, errors);
  if (file) head = headOf(file.get());
  return file != nullptr;
}

bool readRawGrid(const std::string& path, std::shared_ptr<HeightGrid>& grid, std::ostream& errors) {
  grid.reset();
  const FilePtr file = openRaw(path, errors);
  if (!file) return false;
  const HeaderBytes head = headOf(file.get());
  grid = HeightGrid::zeroed(readLe<std::int32_t>(&head[4]), readLe<std::int32_t>(&head[8]));
  if (!grid) return false;
  (void)std::fread(grid->values().data(), sizeof(double), grid->count(), file.get());
  return true;
}

double meanAbsoluteDeviation(std::span<const double> grid, int nx, int ny) {
  if (nx < 1 || ny < 1 ||
      grid.size() != static_cast<std::size_t>(nx) * static_cast<std::size_t>(ny)) {
    return 0.0;
  }
  double sum = 0.0;
  double finite = 0.0;
  for (const double height : grid) {
    if (isMissing(height)) continue;
    sum += height;
    ++finite;
  }
  double deviations = 0.0;
  for (const double height : grid) {
    if (!isMissing(height)) deviations += std::abs(height - sum / finite);
  }
  return finite > 0.0 ? deviations / finite : 0.0;
}

}  // namespace morvane
