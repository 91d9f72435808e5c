// Which frames are drawn with fewer points, and with how many.
#include <gtest/gtest.h>

#include "geometry/frame_pacer.h"

namespace morvane {
namespace {

constexpr std::size_t kMillion = 1'000'000;

TEST(FramePacer, TakesASlowSurfaceForFastOnlyWhenItWasMeasured) {
  FramePacer pacer;
  EXPECT_TRUE(pacer.fullIsFast(FramePacer::kSmallSurface));
  EXPECT_FALSE(pacer.fullIsFast(kMillion));
  EXPECT_FALSE(pacer.fullIsSlow(kMillion));
  EXPECT_TRUE(pacer.fullIsSlow(16 * kMillion));
  pacer.fullTook(kMillion, 20.0);
  EXPECT_TRUE(pacer.fullIsFast(kMillion));
  EXPECT_FALSE(pacer.fullIsFast(3 * kMillion));
  EXPECT_FALSE(pacer.fullIsSlow(16 * kMillion));
}

/// Frames that take `each` milliseconds a point, and 10 more.
double pacedFrame(FramePacer& pacer, double each) {
  double frame = 0.0;
  for (int i = 0; i < 60; ++i) {
    const std::size_t points = pacer.coarsePoints();
    frame = 10.0 + each * static_cast<double>(points);
    pacer.coarseTook(points, i % 7 == 3 ? 10.0 * frame : frame);  // some other program works too
  }
  return frame;
}

TEST(FramePacer, FindsTheNumberOfPointsWhoseFrameIsNeitherSlowNorNeedlesslyCoarse) {
  for (const double each : {0.0002, 0.0007, 0.0015}) {
    FramePacer pacer;
    const double frame = pacedFrame(pacer, each);
    EXPECT_GE(frame, 18.0) << each;
    EXPECT_LE(frame, 28.01) << each;
  }
}

}  // namespace
}  // namespace morvane
