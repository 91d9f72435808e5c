// The transmission of a Gaussian filter over the half spectrum of a height grid.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace morvane {

/// The number of columns of the half spectrum of a grid of `nx` columns.
constexpr std::size_t spectrumColumns(int nx) { return static_cast<std::size_t>(nx) / 2 + 1; }

/// How strongly waves of a grid of `nx` × `ny` points (both at least 1) pass a Gaussian low pass,
/// and its complement, the high pass. Spectrum element (row, column) has the weight
///
///   exp(−π (α · cut / wavelength)²),  α = √(ln 2 / π)
///
/// of its row times that of its column, divided by the largest such product. The transmission at
/// the cut-off is 50 % (the profile filter of ISO 16610-21, once in each direction). Cut-offs and
/// pixels are in mm. Only the absolute value of their quotient counts. Row and column weights are
/// in single precision, their product is in double precision.
///
/// Kept: wavelengths are whole pixels, the integer quotients of size and wave number. Kept: with an
/// odd row count there is one negative wave number too few, and the last row has the wavelength 0,
/// which no low pass lets through.
///
/// A cut-off of 0, or one that is NaN in pixels, removes nothing. When even the largest product is
/// 0 the weights stay 0. No weight is ever NaN.
class GaussianWeights {
 public:
  GaussianWeights(int nx, int ny, float cutX, float cutY, float pixelX, float pixelY);

  /// Writes the low-pass weights of spectrum row `row`; `weights` has `spectrumColumns(nx)`
  /// elements. The mean of the grid passes unchanged.
  void lowPassRow(std::size_t row, std::span<double> weights) const;
  /// The same for the high pass: 1 − low pass. It removes the mean.
  void highPassRow(std::size_t row, std::span<double> weights) const;

  /// Whether the weights of `row` equal those of the row before. Most do, since there are few
  /// different wavelengths in whole pixels. The first row, which has the mean, never does.
  [[nodiscard]] bool repeats(std::size_t row) const {
    return row > 1 && rows_[row] == rows_[row - 1];
  }
  [[nodiscard]] std::size_t rows() const { return rows_.size(); }

 private:
  std::vector<double> columns_;
  std::vector<double> rows_;
  double largest_;
};

/// The divisor for weights with this largest element: the element in single precision. If single
/// precision makes it denormal, the element in double; if it makes it 0, 1.
double weightDivisor(double largest);

/// Fills `weights` (`ny` rows of `spectrumColumns(nx)`) with the weights of `GaussianWeights`. Does
/// nothing for sizes below 1 or a span of the wrong size.
void gaussianLowPassWeights(std::span<double> weights, int nx, int ny, float cutX, float cutY,
                            float pixelX, float pixelY);
void gaussianHighPassWeights(std::span<double> weights, int nx, int ny, float cutX, float cutY,
                             float pixelX, float pixelY);

}  // namespace morvane
