// Chooses with how many points a surface is drawn while it moves, from the times of earlier frames.
#pragma once

#include <array>
#include <cstddef>

namespace morvane {

/// Times are in milliseconds, of whole frames.
class FramePacer {
 public:
  /// A frame at full detail within this time is fast enough for motion.
  static constexpr double kFastFrame = 40.0;
  /// Surfaces of at most so many points are always drawn at full detail: a frame of fewer points
  /// would not be much faster.
  static constexpr std::size_t kSmallSurface = 1U << 16;

  /// Whether a frame of all `points` points of a surface is known to be fast.
  [[nodiscard]] bool fullIsFast(std::size_t points) const;
  /// Whether a frame of all `points` points is expected to take more than a second.
  [[nodiscard]] bool fullIsSlow(std::size_t points) const;
  /// The most points a coarse surface should have, so that a frame takes 18 to 28 ms.
  [[nodiscard]] std::size_t coarsePoints() const { return coarsePoints_; }

  /// Reports the time of a frame at full detail, of more than `kSmallSurface` points.
  void fullTook(std::size_t points, double milliseconds);
  /// Reports the time of a frame of a coarse surface.
  void coarseTook(std::size_t points, double milliseconds);

 private:
  std::size_t coarsePoints_ = 30'000;
  double perPoint_ = 0.0;  // the time of a point at full detail; 0 while it is not known
  // The last frames with the same number of points.
  std::array<double, 3> times_{};
  std::size_t timesKnown_ = 0;
  std::size_t pointsTimed_ = 0;
};

}  // namespace morvane
