// The height grid of a measurement: one owned buffer with its size.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <utility>

namespace morvane {

/// True for a missing point: a height that is not finite in the single precision of the picture.
inline bool isMissing(double height) {
  return !(std::abs(height) <= double{std::numeric_limits<float>::max()});
}

/// `width` × `height` heights in row order: element (column x, row y) is number y × width + x.
/// Heights are as the file holds them (µm where the program shows a unit). Values that
/// `isMissing` are points the instrument could not see.
class HeightGrid {
 public:
  /// A grid of zeros whose memory costs nothing until it is written. Null when a size is negative,
  /// the count is above 2^31 − 1, or memory cannot hold it.
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
