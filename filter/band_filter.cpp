#include "filter/band_filter.h"

#include <fftw3.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <ostream>
#include <type_traits>
#include <vector>

#include "base/memory_advice.h"
#include "base/number_text.h"
#include "filter/filter_words.h"

namespace morvane {
namespace {

struct SpectrumFree {
  void operator()(fftw_complex* spectrum) const { fftw_free(spectrum); }
};
using Spectrum = std::unique_ptr<fftw_complex, SpectrumFree>;

struct PlanDestroy {
  void operator()(fftw_plan plan) const { fftw_destroy_plan(plan); }
};
using Plan = std::unique_ptr<std::remove_pointer_t<fftw_plan>, PlanDestroy>;

bool execute(const Plan& plan) {
  if (plan) fftw_execute(plan.get());
  return plan != nullptr;
}

Spectrum spectrumOf(int nx, int ny) {
  const std::size_t count = spectrumColumns(nx) * static_cast<std::size_t>(ny);
  Spectrum spectrum(fftw_alloc_complex(count));
  if (spectrum) adviseHugePages(spectrum.get(), count * sizeof(fftw_complex));
  return spectrum;
}

/// The weights of one filter, one spectrum row at a time. A whole grid of weights would take as
/// much memory as the heights.
class FilterWeights {
 public:
  FilterWeights(FilterType type, std::size_t columns, const GaussianWeights& low,
                const GaussianWeights& high)
      : type_(type), low_(low), high_(high), row_(columns), highRow_(columns) {
    if (type_ != FilterType::kBandPass) return;
    // Smaller products may be rounding errors of weights near 0 and 1.
    constexpr double kMinProduct = 1e-6;
    const double largest = largestProduct();
    passesNothing_ = largest <= kMinProduct;
    divisor_ = weightDivisor(largest);
  }

  /// Whether a band pass has the weight 0 everywhere.
  [[nodiscard]] bool passesNothing() const { return passesNothing_; }

  /// Call for the rows in order. Each is valid until the next call.
  std::span<const double> row(std::size_t y) {
    if (repeats(y)) return row_;
    switch (type_) {
      case FilterType::kHighPass:
        low_.highPassRow(y, row_);
        break;
      case FilterType::kLowPass:
        low_.lowPassRow(y, row_);
        break;
      case FilterType::kBandPass:
        fillProducts(y);
        for (double& weight : row_) weight = passesNothing_ ? 0.0 : weight / divisor_;
        break;
    }
    return row_;
  }

 private:
  [[nodiscard]] bool repeats(std::size_t y) const { return low_.repeats(y) && high_.repeats(y); }

  void fillProducts(std::size_t y) {
    low_.lowPassRow(y, row_);
    high_.highPassRow(y, highRow_);
    // A high pass may round to slightly below 0, which a small divisor would magnify.
    for (std::size_t k = 0; k < row_.size(); ++k) row_[k] = std::max(0.0, row_[k] * highRow_[k]);
  }

  double largestProduct() {
    double largest = 0.0;
    for (std::size_t y = 0; y < low_.rows(); ++y) {
      if (repeats(y)) continue;
      fillProducts(y);
      largest = std::max(largest, *std::ranges::max_element(row_));
    }
    return largest;
  }

  FilterType type_;
  const GaussianWeights& low_;
  const GaussianWeights& high_;
  std::vector<double> row_;
  std::vector<double> highRow_;
  bool passesNothing_ = false;
  double divisor_ = 1.0;
};

void weigh(fftw_complex* spectrum, std::size_t rows, FilterWeights& weights) {
  for (std::size_t y = 0; y < rows; ++y) {
    for (const double weight : weights.row(y)) {
      (*spectrum)[0] *= weight;
      (*spectrum)[1] *= weight;
      ++spectrum;
    }
  }
}

/// Copies `input`, its missing points replaced by the mean of the rest.
void fillMissing(std::span<const double> input, std::span<double> whole, std::size_t missing) {
  double sum = 0.0;
  for (const double height : input) sum += isMissing(height) ? 0.0 : height;
  const std::size_t finite = input.size() - missing;
  const double mean = finite == 0 ? 0.0 : sum / static_cast<double>(finite);
  std::ranges::replace_copy_if(input, whole.begin(), isMissing, mean);
}

bool fits(std::size_t size, int nx, int ny) {
  return nx >= 1 && ny >= 1 && size <= std::numeric_limits<std::int32_t>::max() &&
         size == static_cast<std::size_t>(nx) * static_cast<std::size_t>(ny);
}

bool transformAndWeigh(std::span<const double> input, std::span<double> output, int nx, int ny,
                       FilterWeights& weights) {
  const Spectrum spectrum = spectrumOf(nx, ny);
  if (!spectrum) return false;
  const auto missing = static_cast<std::size_t>(std::ranges::count_if(input, isMissing));
  // An out-of-place forward transform only reads its input, although its signature is not const.
  // `output` is still unused, so it holds the copy without missing points.
  double* heights = missing == 0 ? const_cast<double*>(input.data()) : output.data();
  if (missing > 0) fillMissing(input, output, missing);

  if (!execute(Plan(fftw_plan_dft_r2c_2d(ny, nx, heights, spectrum.get(), FFTW_ESTIMATE)))) {
    return false;
  }
  weigh(spectrum.get(), static_cast<std::size_t>(ny), weights);
  if (!execute(Plan(fftw_plan_dft_c2r_2d(ny, nx, spectrum.get(), output.data(), FFTW_ESTIMATE)))) {
    return false;
  }
  const auto count = static_cast<double>(output.size());
  for (double& height : output) height /= count;
  for (std::size_t i = 0; missing > 0 && i < output.size(); ++i) {
    if (isMissing(input[i])) output[i] = std::numeric_limits<double>::quiet_NaN();
  }
  return true;
}

}  // namespace

std::string_view wordOf(FilterType type) {
  constexpr std::string_view kWords[] = {"hpf", "lpf", "bpf"};
  return kWords[static_cast<std::size_t>(type)];
}

bool filterGrid(std::span<const double> input, std::span<double> output, int nx, int ny,
                float lowCutX, float lowCutY, float highCutX, float highCutY, float pixelX,
                float pixelY, FilterType type) {
  if (!fits(input.size(), nx, ny) || output.size() != input.size()) return false;
  try {
    const GaussianWeights low(nx, ny, lowCutX, lowCutY, pixelX, pixelY);
    const GaussianWeights high(nx, ny, highCutX, highCutY, pixelX, pixelY);
    FilterWeights weights(type, spectrumColumns(nx), low, high);
    return transformAndWeigh(input, output, nx, ny, weights);
  } catch (const std::bad_alloc&) {
    return false;
  }
}

bool bandPassesNothing(int nx, int ny, float l1, float l2, float pixelX, float pixelY) {
  if (nx < 1 || ny < 1) return false;
  try {
    const GaussianWeights low(nx, ny, l1, l1, pixelX, pixelY);
    const GaussianWeights high(nx, ny, l2, l2, pixelX, pixelY);
    return FilterWeights(FilterType::kBandPass, spectrumColumns(nx), low, high).passesNothing();
  } catch (const std::bad_alloc&) {
    return false;
  }
}

std::optional<FilterType> typeOf(const FilterSettings& settings) {
  if (settings.highPass) return FilterType::kHighPass;
  if (settings.lowPass) return FilterType::kLowPass;
  if (settings.bandPass) return FilterType::kBandPass;
  return std::nullopt;
}

float cutOffOf(std::string_view typed) { return leadingFloat(typed); }

FilterRun runFilter(const FilterSettings& settings, const Measurement& measurement,
                    std::ostream& console) {
  const std::optional<FilterType> type = typeOf(settings);
  if (!type) {
    console << "Error ---- Undefined button number\n";
    return {FilterStatus::kNoType, nullptr};
  }
  const HeightGrid* raw = measurement.grid.get();
  const int nx = raw != nullptr ? static_cast<int>(raw->width()) : 0;
  const int ny = raw != nullptr ? static_cast<int>(raw->height()) : 0;
  const auto pixelX = static_cast<float>(measurement.header.pixelSizeX);
  const auto pixelY = static_cast<float>(measurement.header.pixelSizeY);
  console << "FILTER TYPE: " << wordOf(*type) << "\nRES DIMENSIONS: (X) = " << nx
          << "  (Y) =  " << ny << "\nPixel Values: (X) = " << pixelX << "  (Y) =  " << pixelY
          << '\n';
  if (nx == 0 || ny == 0) return {FilterStatus::kNoGrid, nullptr};
  const std::shared_ptr<HeightGrid> filtered = HeightGrid::zeroed(nx, ny);
  if (!filtered) return {FilterStatus::kNoMemory, nullptr};
  const float l1 = cutOffOf(settings.l1);
  const float l2 = cutOffOf(settings.l2);
  if (!filterGrid(raw->values(), filtered->values(), nx, ny, l1, l1, l2, l2, pixelX, pixelY,
                  *type)) {
    return {FilterStatus::kNoMemory, nullptr};
  }
  return {FilterStatus::kDone, filtered, filterWords(settings)};
}

}  // namespace morvane
