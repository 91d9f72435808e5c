#include "surface/percentiles.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "surface/row_bands.h"

namespace morvane {
namespace {

constexpr int kHalf = 16;  // bits
constexpr std::uint32_t kSign = 0x80000000;

/// The bits of a height as a number with the order of the heights.
std::uint32_t orderOf(float height) {
  const auto bits = std::bit_cast<std::uint32_t>(height);
  return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

float heightOf(std::uint32_t order) {
  return std::bit_cast<float>((order & kSign) != 0 ? order & ~kSign : ~order);
}

/// The number of heights for each value of half the bits of their order.
using Histogram = std::vector<std::uint32_t>;

/// Counts the bins of all heights for which `binOf(order, bin)` gives one.
template <typename BinOf>
Histogram countHeights(const HeightGrid& grid, const BinOf& binOf) {
  std::array<Histogram, kWorkers> found;
  found.fill(Histogram(std::size_t{1} << kHalf));
  // No cells start at the last row, which has heights all the same.
  forEachRowBand(grid.height() + 1, [&](std::size_t band, std::size_t first, std::size_t end) {
    Histogram& counts = found[band];
    for (std::size_t row = first; row < end; ++row) {
      for (const double height : grid.row(row)) {
        std::uint32_t bin = 0;
        if (!isMissing(height) && binOf(orderOf(static_cast<float>(height)), bin)) ++counts[bin];
      }
    }
  });
  Histogram all = std::move(found.front());
  for (std::size_t band = 1; band < kWorkers; ++band) {
    for (std::size_t bin = 0; bin < all.size(); ++bin) all[bin] += found[band][bin];
  }
  return all;
}

/// Heights by their rank. The upper half of the bits is counted first, then the lower half of those
/// with a wanted upper half.
class RankedHeights {
 public:
  explicit RankedHeights(const HeightGrid& grid)
      : grid_(grid), upper_(countHeights(grid, [](std::uint32_t order, std::uint32_t& bin) {
          bin = order >> kHalf;
          return true;
        })) {
    for (const std::uint32_t count : upper_) count_ += count;
  }

  [[nodiscard]] std::size_t count() const { return count_; }

  /// The height with `rank` (below `count`) others before it.
  float at(std::size_t rank) {
    const std::uint32_t upper = takeBin(upper_, rank);
    const auto [lower, fresh] = lower_.try_emplace(upper);
    if (fresh) {
      lower->second = countHeights(grid_, [upper](std::uint32_t order, std::uint32_t& bin) {
        bin = order & 0xFFFF;
        return order >> kHalf == upper;
      });
    }
    return heightOf(upper << kHalf | takeBin(lower->second, rank));
  }

 private:
  /// The bin that holds `rank`, which becomes the rank within it.
  static std::uint32_t takeBin(const Histogram& counts, std::size_t& rank) {
    std::uint32_t bin = 0;
    for (; rank >= counts[bin]; ++bin) rank -= counts[bin];
    return bin;
  }

  const HeightGrid& grid_;
  Histogram upper_;
  std::map<std::uint32_t, Histogram> lower_;  // by the upper half
  std::size_t count_ = 0;
};

float percentile(RankedHeights& heights, double percentage) {
  const double place = percentage / 100.0 * static_cast<double>(heights.count() - 1);
  const auto rank = static_cast<std::size_t>(place);
  const double below = heights.at(rank);
  const double part = place - std::floor(place);
  if (part == 0.0) return static_cast<float>(below);
  return static_cast<float>(below + part * (heights.at(rank + 1) - below));
}

}  // namespace

HeightRange findPercentiles(const HeightGrid& grid, const Percentages& percentages) {
  RankedHeights heights(grid);
  if (heights.count() == 0) return {};
  return {percentile(heights, percentages.low), percentile(heights, percentages.high)};
}

}  // namespace morvane
