#include "filter/gaussian_weights.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace morvane {
namespace {

constexpr float kPi = 3.1415927F;

/// The wavelength of `waves` periods over `points` points, in pixels. Kept: whole pixels.
float wavelength(int points, int waves) {
  const int pixels = points / waves;
  return static_cast<float>(pixels);
}

/// In pixels, from wave number 0, which has the wavelength of wave number 1.
std::vector<float> columnWavelengths(int nx) {
  std::vector<float> lengths;
  for (int k = 0; k <= nx / 2; ++k) lengths.push_back(wavelength(nx, std::max(k, 1)));
  return lengths;
}

/// The same, with the negative wave numbers after the positive ones.
std::vector<float> rowWavelengths(int ny) {
  std::vector<float> lengths = columnWavelengths(ny);
  for (int m = (-ny) / 2 + 1; m < 0; ++m) lengths.push_back(wavelength(ny, m));
  lengths.resize(static_cast<std::size_t>(ny), 0.0F);
  return lengths;
}

std::vector<double> transmissions(const std::vector<float>& wavelengths, float cut) {
  const auto alpha = static_cast<float>(std::sqrt(std::numbers::ln2 / std::numbers::pi));
  std::vector<double> weights;
  weights.reserve(wavelengths.size());
  for (const float wavelength : wavelengths) {
    const float ratio = alpha * cut / wavelength;
    // Without a valid cut-off, and for 0 / 0 in the last of an odd number of rows, everything
    // passes.
    weights.push_back(std::isnan(ratio) ? 1.0F : std::exp(-kPi * (ratio * ratio)));
  }
  return weights;
}

using FillRow = void (GaussianWeights::*)(std::size_t, std::span<double>) const;

void fillGrid(std::span<double> grid, int nx, int ny, const GaussianWeights& weights,
              FillRow fillRow) {
  const std::size_t columns = spectrumColumns(nx);
  for (std::size_t row = 0; row < static_cast<std::size_t>(ny); ++row) {
    (weights.*fillRow)(row, grid.subspan(row * columns, columns));
  }
}

bool fits(std::span<const double> grid, int nx, int ny) {
  return nx >= 1 && ny >= 1 && grid.size() == spectrumColumns(nx) * static_cast<std::size_t>(ny);
}

}  // namespace

double weightDivisor(double largest) {
  const auto narrowed = static_cast<float>(largest);
  if (narrowed == 0.0F) return 1.0;
  // Denormal floats are too coarse: weights would become much larger than 1.
  return narrowed < std::numeric_limits<float>::min() ? largest : narrowed;
}

// The largest product is that of the two largest factors. Products of two floats are exact in
// double, so no element can be larger by rounding.
GaussianWeights::GaussianWeights(int nx, int ny, float cutX, float cutY, float pixelX, float pixelY)
    : columns_(transmissions(columnWavelengths(nx), cutX / pixelX)),
      rows_(transmissions(rowWavelengths(ny), cutY / pixelY)),
      largest_(
          weightDivisor(*std::ranges::max_element(rows_) * *std::ranges::max_element(columns_))) {}

void GaussianWeights::lowPassRow(std::size_t row, std::span<double> weights) const {
  const double ofRow = rows_[row];
  for (std::size_t k = 0; k < columns_.size(); ++k) weights[k] = ofRow * columns_[k] / largest_;
  if (row == 0) weights[0] = 1.0;
}

void GaussianWeights::highPassRow(std::size_t row, std::span<double> weights) const {
  const double ofRow = rows_[row];
  for (std::size_t k = 0; k < columns_.size(); ++k) {
    weights[k] = 1.0 - ofRow * columns_[k] / largest_;
  }
  if (row == 0) weights[0] = 0.0;
}

void gaussianLowPassWeights(std::span<double> weights, int nx, int ny, float cutX, float cutY,
                            float pixelX, float pixelY) {
  if (!fits(weights, nx, ny)) return;
  fillGrid(weights, nx, ny, {nx, ny, cutX, cutY, pixelX, pixelY}, &GaussianWeights::lowPassRow);
}

void gaussianHighPassWeights(std::span<double> weights, int nx, int ny, float cutX, float cutY,
                             float pixelX, float pixelY) {
  if (!fits(weights, nx, ny)) return;
  fillGrid(weights, nx, ny, {nx, ny, cutX, cutY, pixelX, pixelY}, &GaussianWeights::highPassRow);
}

}  // namespace morvane
