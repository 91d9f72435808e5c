#include "geometry/frame_pacer.h"

#include <algorithm>

#include "surface/coarse_mesh.h"

namespace morvane {
namespace {

// Milliseconds. A motion is followed after about one and a half frames and the time to show one:
// the aim is 50 ms at the median.
constexpr double kLongest = 28.0;
constexpr double kWanted = 23.0;
constexpr double kShortest = 18.0;
constexpr std::size_t kMaxPoints = 250'000;
static_assert(kMaxPoints * kCoarseBytesPerVertex < 16'000'000);
// With fewer a frame is hardly faster: its other parts take the time.
constexpr std::size_t kMinPoints = 12'000;
constexpr double kSlowFrame = 1000.0;
// Of a software GL on two cores: what a point takes, as long as no frame has been timed.
constexpr double kGuessPerPoint = 0.0004;

}  // namespace

bool FramePacer::fullIsFast(std::size_t points) const {
  if (points <= kSmallSurface) return true;
  return perPoint_ > 0.0 && perPoint_ * static_cast<double>(points) <= kFastFrame;
}

bool FramePacer::fullIsSlow(std::size_t points) const {
  const double perPoint = perPoint_ > 0.0 ? perPoint_ : kGuessPerPoint;
  return perPoint * static_cast<double>(points) > kSlowFrame;
}

void FramePacer::fullTook(std::size_t points, double milliseconds) {
  perPoint_ = milliseconds / static_cast<double>(points);
}

void FramePacer::coarseTook(std::size_t points, double milliseconds) {
  if (points != pointsTimed_) timesKnown_ = 0;
  pointsTimed_ = points;
  times_[timesKnown_++] = milliseconds;
  if (timesKnown_ < times_.size()) return;
  timesKnown_ = 0;
  // The median, so that a single slow frame changes nothing.
  auto* const middle = times_.begin() + times_.size() / 2;
  std::nth_element(times_.begin(), middle, times_.end());
  if (*middle >= kShortest && *middle <= kLongest) return;
  const double factor = std::clamp(kWanted / *middle, 0.4, 2.5);
  coarsePoints_ = std::clamp(static_cast<std::size_t>(static_cast<double>(points) * factor),
                             kMinPoints, kMaxPoints);
}

}  // namespace morvane
