// Removing long or short waves from a height grid by a two-dimensional Gaussian filter.
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

/// The word the log has for a type: "hpf", "lpf" or "bpf".
std::string_view wordOf(FilterType type);

/// Filters `input` (`ny` rows of `nx` heights) into `output` of the same size, which must not
/// overlap it: real transform, weights, transform back. Cut-offs and pixels are in mm.
///
/// A high and a low pass use the low cut-offs; a band pass is the low pass at the low cut-offs
/// times the high pass at the high ones, scaled so that its largest weight is 1, whichever way
/// round the cut-offs are. Where no weight would exceed 1e-6 before that, nothing passes: what is
/// left could be rounding. The weights are those of `GaussianWeights`.
///
/// Missing points count as the mean of the rest and are NaN in the output; every other height of
/// the output is a number whatever the cut-offs and pixels. False when memory cannot hold the
/// spectrum, a size is below 1 or a span does not have the size; `output` is then worth nothing.
/// Takes one grid's worth of memory. One thread at a time, as planning a transform is not
/// thread-safe.
[[nodiscard]] bool filterGrid(std::span<const double> input, std::span<double> output, int nx,
                              int ny, float lowCutX, float lowCutY, float highCutX, float highCutY,
                              float pixelX, float pixelY, FilterType type);

/// Whether a band pass with these cut-offs, in mm, lets nothing of a grid of `nx` × `ny` points
/// through.
bool bandPassesNothing(int nx, int ny, float l1, float l2, float pixelX, float pixelY);

/// What the operator set.
struct FilterSettings {
  std::string l1;  ///< as typed: cut-off of high and low pass, short side of a band pass, mm
  std::string l2;  ///< as typed: long side of a band pass, mm; the other types ignore it
  bool highPass = false;
  bool lowPass = false;
  bool bandPass = false;
};

/// The type of the first button that is set; none without one.
std::optional<FilterType> typeOf(const FilterSettings& settings);

/// The number that `typed` begins with; 0 when it begins with none. Words such as "inf" are none.
float cutOffOf(std::string_view typed);

enum class FilterStatus { kDone, kNoType, kNoGrid, kNoMemory };

struct FilterRun {
  FilterStatus status = FilterStatus::kNoGrid;
  std::shared_ptr<const HeightGrid> filtered;  ///< of the measurement's size; null unless done
  std::string words = {};                      ///< what was done, to be shown with it
};

/// Filters the heights of `measurement` as `settings` say and writes the log lines of a run to
/// `console`. A run without a type, heights or memory changes nothing and says which it was;
/// storing the result and showing it is the caller's.
[[nodiscard]] FilterRun runFilter(const FilterSettings& settings, const Measurement& measurement,
                                  std::ostream& console);

}  // namespace morvane
