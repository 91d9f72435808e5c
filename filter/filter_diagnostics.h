// Diagnostics of the filter: weights as a table, raw files, the mean deviation of a grid.
#pragma once

#include <iostream>
#include <memory>
#include <span>
#include <string>

#include "resfile/height_grid.h"
#include "resfile/res_header.h"

namespace morvane {

/// Fills `weights` (`ny` rows of `spectrumColumns(nx)`, both sizes at least 1) with Gaussian
/// weights in the frequency domain: exp(−4π² s² f²) for each axis, and the outer product divided by
/// its largest element. Writes them as the table "fg_export.csv" to the working folder: six
/// decimals, a comma after each value. Lengths are in mm. Kept: with an odd row count the last row
/// has the frequency 0. Returns an empty text on success, else the error message.
[[nodiscard]] std::string exportGaussianWeights(std::span<double> weights, int nx, int ny,
                                                float cutX, float cutY, float pixelX, float pixelY);

/// Reads the first 256 bytes of a measurement file; missing bytes are zero. When it cannot be
/// opened, writes "File error" to `errors` and returns false.
[[nodiscard]] bool readRawHead(const std::string& path, HeaderBytes& head,
                               std::ostream& errors = std::cerr);

/// Reads the heights of a file of doubles, whatever element type its header states; missing values
/// are zero. Returns false and sets `grid` to null when the file cannot be opened ("File error" on
/// `errors`) or its sizes are impossible.
[[nodiscard]] bool readRawGrid(const std::string& path, std::shared_ptr<HeightGrid>& grid,
                               std::ostream& errors = std::cerr);

/// The mean of |z − mean(z)| over the heights of a grid that are not missing. 0 when there are none
/// or `grid` does not have `nx` × `ny` heights.
double meanAbsoluteDeviation(std::span<const double> grid, int nx, int ny);

}  // namespace morvane
