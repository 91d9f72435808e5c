// The height grid of a measurement: one owned buffer with its size.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <utility>

namespace morvane {

/// True for a missing point: NaN, infinity, or beyond the range of the float that is drawn.
inline bool isMissing(double height) {
  return !(std::abs(height) <= double{std::numeric_limits<float>::max()});
}

/// `width` × `height` heights in row order: element (column x, row y) has index y × width + x.
/// Heights are those of the file, in µm. Values for which `isMissing` holds are points that the
/// instrument could not measure.
class HeightGrid {
 public:
  /// A grid of zeros. Its pages take no memory until they are written. Null when a size is
  /// negative, the count is above 2^31 − 1, or there is not enough memory.
  static std::shared_ptr<HeightGrid> zeroed(std::int64_t width, std::int64_t height);

  [[nodiscard]] std::size_t width() const { return width_; }
  [[nodiscard]] std::size_t height() const { return height_; }
  [[nodiscard]] std::size_t count() const { return width_ * height_; }

  [[nodiscard]] std::span<double> values() { return {values_.get(), count()}; }
  [[nodiscard]] std::span<const double> values() const { return {values_.get(), count()}; }

  /// The `width()` heights of row `y`; `y` must be below `height()`.
  [[nodiscard]] std::span<const double> row(std::size_t y) const {
    return values().subspan(y * width_, width_);
  }

  /// The index of the first height that is not missing; none if all are.
  [[nodiscard]] std::optional<std::size_t> firstFinite() const;

 private:
  struct Free {
    void operator()(double* memory) const;
  };
  using Memory = std::unique_ptr<double[], Free>;

  HeightGrid(std::size_t width, std::size_t height, Memory values)
      : width_(width), height_(height), values_(std::move(values)) {}

  std::size_t width_;
  std::size_t height_;
  Memory values_;
};

}  // namespace morvane
