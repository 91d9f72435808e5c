// The transmission of a Gaussian filter over the half spectrum of a height grid.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace morvane {

/// The columns of the half spectrum of a grid of `nx` columns.
constexpr std::size_t spectrumColumns(int nx) { return static_cast<std::size_t>(nx) / 2 + 1; }

/// How strongly waves of a grid of `nx` × `ny` points (both at least 1) pass a Gaussian low pass,
/// and its complement, the high pass. Spectrum element (row, column) has the weight
///
///   exp(−π (α · cut / wavelength)²),  α = √(ln 2 / π)
///
/// of its row times that of its column, divided by the largest such product: half of a wave as long
/// as the cut-off passes (the profile filter of ISO 16610-21, once in each direction). Cut-offs and
/// pixels are in mm; only their quotient counts, and its sign does not. Vectors are in single, the
/// product of row and column in double precision.
///
/// Kept: wavelengths are whole pixels, integer quotients of size and wave number; with an odd row
/// count the negative wave numbers are one short, and the last row has the wavelength 0: no low
/// pass lets it through.
///
/// A cut-off of 0, or one that is not a number in pixels, removes nothing anywhere. When even the
/// largest product is 0 the weights stay 0. No weight is ever not a number.
class GaussianWeights {
 public:
  GaussianWeights(int nx, int ny, float cutX, float cutY, float pixelX, float pixelY);

  /// Writes the low-pass weights of spectrum row `row`; `weights` has `spectrumColumns(nx)`
  /// elements. The mean of the grid passes whole.
  void lowPassRow(std::size_t row, std::span<double> weights) const;
  /// The same for the high pass: 1 − low pass, and nothing of the mean.
  void highPassRow(std::size_t row, std::span<double> weights) const;

  /// Whether the weights of `row` are those of the row before it, as they mostly are: whole pixels
  /// leave few different wavelengths. The first row, which holds the mean, is unlike any.
  [[nodiscard]] bool repeats(std::size_t row) const {
    return row > 1 && rows_[row] == rows_[row - 1];
  }
  [[nodiscard]] std::size_t rows() const { return rows_.size(); }

 private:
  std::vector<double> columns_;
  std::vector<double> rows_;
  double largest_;
};

/// What a weight grid with this largest element is divided by: the element in single precision; in
/// double where it lies below the normal range of single; 1 where single makes it 0.
double weightDivisor(double largest);

/// Fills `weights` (`ny` rows of `spectrumColumns(nx)`) with the weights of `GaussianWeights`.
/// Sizes below 1, or a span of another size, leave it alone.
void gaussianLowPassWeights(std::span<double> weights, int nx, int ny, float cutX, float cutY,
                            float pixelX, float pixelY);
void gaussianHighPassWeights(std::span<double> weights, int nx, int ny, float cutX, float cutY,
                             float pixelX, float pixelY);

}  // namespace morvane
