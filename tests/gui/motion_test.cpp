// Surfaces that take long to draw: coarse pictures in motion, and the whole picture afterwards.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/gui/on_show.h"
#include "tools/measurement_builder.h"

namespace morvane::gui {
namespace {

constexpr Area kView{155, 60, 1100, 700};
constexpr Point kCentre = middleOf(kFirstLayout.view);

class Motion : public OnShow {
 protected:
  /// Opens a rough surface of `side` × `side` points, whose coarse picture differs.
  void openRough(int side) {
    MeasurementContent content;
    content.width = content.height = side;
    for (int y = 0; y < side; ++y) {
      for (int x = 0; x < side; ++x) content.heights.push_back(x * 7 % 31 + 4 * std::sin(y * 0.7));
    }
    writeBytes(folder_.file("rough.res"), encodeMeasurement(content));
    OnShow::open(folder_.file("rough.res"));
  }
};

TEST_F(Motion, EndsWithThePictureOfTheWholeSurfaceUnchanged) {
  openRough(400);
  const auto isAsAtStart = [this](const Image& p) { return sameAsAtStart(p, kView); };
  window().hold(kCentre, {kCentre.x - 150, kCentre.y}, {1});
  EXPECT_TRUE(eventually([this] { return !program_->wholeFrameShown(); }));
  EXPECT_TRUE(eventually([this] { return program_->wholeFrameShown(); }))
      << "with the button still held";
  window().release({1});
  EXPECT_FALSE(isAsAtStart(window().capture()));
  program_->press(control::kReset);
  await("the picture before the motion", isAsAtStart);
}

TEST_F(Motion, WhileALargeSurfaceIsDrawnEventsAreAnswered) {
  openRough(1200);
  const auto coarseFrames = [this] {
    const auto told = program_->lines(Stream::kErrors);
    return std::count(told.begin(), told.end(), "frame: coarse");
  };
  const auto restart = [&](const Area& control) {
    const auto before = coarseFrames();
    program_->press(control);
    EXPECT_TRUE(eventually([&] { return coarseFrames() > before; }));
    EXPECT_FALSE(program_->wholeFrameShown());
  };
  restart(control::kReset);
  restart(control::kPlus);
  const auto framesBeforeDrag = coarseFrames();
  window().drag(kCentre, {kCentre.x - 50, kCentre.y});
  EXPECT_TRUE(eventually([&] { return coarseFrames() > framesBeforeDrag; }));
  restart(control::kReset);

  window().hold(kCentre, kCentre, {});
  program_->awaitLine("Entered");
  const auto framesBefore = coarseFrames();
  const Image coarse = window().capture();
  window().click({167, 12});
  window().awaitPicture("the menu", [](const Image& p) {
    return p.part({165, 28, 30, 16}).count([](const Rgb& c) { return c == kBlack; }) > 100;
  });
  EXPECT_FALSE(program_->wholeFrameShown());
  window().key({"Escape"});
  const Area hidden{155, 28, 100, 40};
  window().awaitPicture("what the menu hid", [&](const Image& p) {
    return program_->wholeFrameShown() || p.part(hidden) == coarse.part(hidden);
  });
  await("the whole picture", [this](const Image& p) { return sameAsAtStart(p, kView); });
  EXPECT_EQ(coarseFrames(), framesBefore) << "the menu made it begin again";

  restart(control::kReset);
  program_->press(control::kReport);
  program_->answerChooser("", "Save report");
  EXPECT_TRUE(program_->wholeFrameShown()) << "the report's picture is that of all points";
}

}  // namespace
}  // namespace morvane::gui
