// Looking into the filter by hand: weights as a table, raw files, a grid's mean deviation.
#pragma once

#include <iostream>
#include <memory>
#include <span>
#include <string>

#include "resfile/height_grid.h"
#include "resfile/res_header.h"

namespace morvane {

/// Fills `weights` (`ny` rows of `spectrumColumns(nx)`, both sizes at least 1) with Gaussian
/// weights formed in the frequency domain, exp(−4π² s² f²) for each axis, the outer product divided
/// by its largest element, and writes them as the table "fg_export.csv" to the working folder: six
/// decimals, a comma behind each value. Lengths are in mm. Kept: with an odd row count the last row
/// has the frequency 0. Returns an empty text, or the reason why there is no table.
[[nodiscard]] std::string exportGaussianWeights(std::span<double> weights, int nx, int ny,
                                                float cutX, float cutY, float pixelX, float pixelY);

/// Reads the 256 bytes a measurement file begins with; what the file lacks is zero. When it cannot
/// be opened, writes "File error" to `errors` and returns false.
[[nodiscard]] bool readRawHead(const std::string& path, HeaderBytes& head,
                               std::ostream& errors = std::cerr);

/// Reads the heights of a file of doubles, whatever element type its head states; what the file
/// lacks is zero. False, and `grid` null, when the file cannot be opened ("File error" on `errors`)
/// or its sizes are impossible.
[[nodiscard]] bool readRawGrid(const std::string& path, std::shared_ptr<HeightGrid>& grid,
                               std::ostream& errors = std::cerr);

/// The mean of |z − mean(z)| over the heights of a grid that are not missing; 0 when there is none
/// or `grid` does not hold `nx` × `ny` heights.
double meanAbsoluteDeviation(std::span<const double> grid, int nx, int ny);

}  // namespace morvane
