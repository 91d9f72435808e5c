// High pass, low pass and band pass of a height grid: a two-dimensional Gaussian filter.
#pragma once

#include <iosfwd>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "filter/gaussian_weights.h"
#include "resfile/measurement.h"

namespace morvane {

enum class FilterType { kHighPass, kLowPass, kBandPass };

/// The name of a type in the log: "hpf", "lpf" or "bpf".
std::string_view wordOf(FilterType type);

/// Filters `input` (`ny` rows of `nx` heights) into `output`, which has the same size and must not
/// overlap it. The real Fourier transform is multiplied by weights and transformed back. Cut-offs
/// and pixels are in mm.
///
/// High and low pass use the low cut-offs. A band pass is the low pass at the low cut-offs times
/// the high pass at the high ones, scaled so that its largest weight is 1. The low cut-off may be
/// above the high one. If no weight exceeds 1e-6 before scaling, nothing passes, since such weights
/// could be rounding errors. The weights are those of `GaussianWeights`.
///
/// Missing points count as the mean of the rest and are NaN in the output. No other height of the
/// output is NaN, whatever the cut-offs and pixels. Returns false, with `output` undefined, when
/// there is not enough memory for the spectrum, a size is below 1, or a span has the wrong size.
/// The spectrum takes as much memory as the grid. Not thread-safe, as planning a transform is not.
[[nodiscard]] bool filterGrid(std::span<const double> input, std::span<double> output, int nx,
                              int ny, float lowCutX, float lowCutY, float highCutX, float highCutY,
                              float pixelX, float pixelY, FilterType type);

/// Whether a band pass with these cut-offs, in mm, removes everything from a grid of `nx` × `ny`
/// points.
bool bandPassesNothing(int nx, int ny, float l1, float l2, float pixelX, float pixelY);

/// The operator's settings.
struct FilterSettings {
  std::string l1;  ///< as typed: cut-off of high and low pass, short side of a band pass, mm
  std::string l2;  ///< as typed: long side of a band pass, mm; the other types ignore it
  bool highPass = false;
  bool lowPass = false;
  bool bandPass = false;
};

/// The type of the first flag that is set; none if no flag is.
std::optional<FilterType> typeOf(const FilterSettings& settings);

/// The number that `typed` begins with, else 0. "inf" is not a number.
float cutOffOf(std::string_view typed);

enum class FilterStatus { kDone, kNoType, kNoGrid, kNoMemory };

struct FilterRun {
  FilterStatus status = FilterStatus::kNoGrid;
  std::shared_ptr<const HeightGrid> filtered;  ///< has the measurement's size; null on failure
  std::string words = {};                      ///< describes the filter in the view
};

/// Filters the heights of `measurement` with `settings` and writes the log lines of a run to
/// `console`. Without a type, heights or enough memory there is no result, and the return value
/// says why. The caller stores and shows the result.
[[nodiscard]] FilterRun runFilter(const FilterSettings& settings, const Measurement& measurement,
                                  std::ostream& console);

}  // namespace morvane
