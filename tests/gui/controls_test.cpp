// The control column, pressed and typed into as an operator does.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>

#include "tests/gui/on_show.h"
#include "tests/support/golden.h"

namespace morvane::gui {
namespace {

using testing::Contains;
using testing::StartsWith;

constexpr Point kHeatMap{77, 202};
constexpr Point kReset{77, 264};
constexpr Point kMinus{17, 348};
constexpr Point kPlus{137, 348};
constexpr Point kMaximum{30, 390};
constexpr Point kMinimum{30, 432};
constexpr Point kCrop{117, 411};
constexpr Point kProfile{77, 546};
constexpr Point kProfileOff{39, 546};
constexpr Point kDetails{77, 608};

constexpr Area kReadout{32, 328, 90, 40};
constexpr Area kHeatMapIcon{50, 175, 54, 54};
constexpr Area kCropIcon{90, 375, 54, 70};
constexpr Area kMiddle{680, 380, 70, 60};  // well inside the surface
constexpr Area kKey{1130, 140, 20, 540};

bool isColourful(const Image& picture) {
  return picture.part(kMiddle).count([](const Rgb& c) { return chroma(c) > 80; }) > 1000;
}
bool isGrey(const Image& picture) {
  return picture.part(kMiddle).count([](const Rgb& c) { return chroma(c) > 12; }) == 0;
}
bool showsKey(const Image& picture) {
  return picture.part(kKey).count([](const Rgb& c) { return chroma(c) > 80; }) > 5000;
}
bool isSky(const Rgb& colour) { return difference(colour, {211, 238, 255}) <= 1; }

class Controls : public OnShow {
 protected:
  /// Opens the reference panel where it has bitmaps beside it, or alone.
  void open(bool withBitmaps) {
    std::string path = golden::file("panel/measurement.res").string();
    if (!withBitmaps) {
      std::filesystem::copy_file(path, folder_.file("alone.res"));
      path = folder_.file("alone.res");
    }
    OnShow::open(path, isColourful);
  }
  /// Opens a file that is cut off; nothing may work otherwise than before.
  void openBroken() {
    std::filesystem::copy_file(golden::file("panel/measurement.res"), folder_.file("cut.res"));
    std::filesystem::resize_file(folder_.file("cut.res"), 5000);
    window().key({"ctrl+o"});
    program_->answerChooser(folder_.file("cut.res"));
    const Window alert = program_->alert();
    alert.key({"Return"});
    alert.awaitGone();
  }
};

TEST_F(Controls, HeatMapGivesWayToTheBitmapAndComesBack) {
  open(true);
  openBroken();
  window().click(kHeatMap);
  const Image draped = await("the bitmap", isGrey);
  EXPECT_FALSE(sameAsAtStart(draped, kHeatMapIcon));
  EXPECT_FALSE(sameAsAtStart(draped, kReadout)) << "the surface lies flat, the readout must say so";
  EXPECT_FALSE(showsKey(draped));
  window().click(kHeatMap);
  const Image back = await("the heat map", isColourful);
  EXPECT_TRUE(sameAsAtStart(back, kReadout));
  EXPECT_TRUE(sameAsAtStart(back, kMiddle));
  EXPECT_TRUE(showsKey(back));
}

TEST_F(Controls, WithoutABitmapTheHeatMapGoesWithTheNextBuild) {
  open(false);
  window().click(kHeatMap);
  const Image toggled =
      await("the other icon", [&](const Image& p) { return !sameAsAtStart(p, kHeatMapIcon); });
  EXPECT_TRUE(sameAsAtStart(toggled, kMiddle));
  // Other limits do not build it anew while the heat map is off.
  window().click(kCrop);
  const Image limited = await("the crop button's other icon",
                              [&](const Image& p) { return !sameAsAtStart(p, kCropIcon); });
  EXPECT_TRUE(sameAsAtStart(limited, kMiddle));
  EXPECT_TRUE(showsKey(limited));
  window().click(kReset);
  const Image rebuilt = await("mid grey", isGrey);
  EXPECT_FALSE(showsKey(rebuilt));
}

TEST_F(Controls, ScaleStepsComeBackToWhereTheyBegan) {
  open(false);
  openBroken();
  window().click(kPlus);
  await("a new readout", [&](const Image& p) { return !sameAsAtStart(p, kReadout); });
  window().click(kMinus);
  await("the old readout", [&](const Image& p) { return sameAsAtStart(p, kReadout); });
  // Let go beyond its end, the slider's knob stands there.
  window().drag({77, 311}, {400, 311});
  await("a steeper surface, the knob at the end", [&](const Image& p) {
    return !sameAsAtStart(p, kReadout) && !sameAsAtStart(p, kMiddle) &&
           p.part({134, 285, 14, 24}).count([](const Rgb& c) { return c.r > 120; }) > 60;
  });
  window().click(kReset);
  await("the first picture",
        [&](const Image& p) { return sameAsAtStart(p, kReadout) && sameAsAtStart(p, kMiddle); });
}

TEST_F(Controls, TypedLimitsAreInForceUntilTheButtonReturnsToAutomatic) {
  open(false);
  window().click(kCrop);
  await("the other icon", [&](const Image& p) { return !sameAsAtStart(p, kCropIcon); });
  type(window(), kMaximum, "1.5abc");
  program_->awaitLine("CROP MAX: 1.5");
  program_->awaitLine("cropMax: 1.5");
  type(window(), kMinimum, "-0.5");
  program_->awaitLine("cropMin: -0.5");
  await("clamped colours",
        [&](const Image& p) { return isColourful(p) && !sameAsAtStart(p, kMiddle); });
  // Limits that make no sense are taken as they stand and leave the program usable.
  type(window(), kMaximum, "");
  program_->awaitLine("cropMax: 0");
  type(window(), kMaximum, "nan");
  type(window(), kMaximum, "-9");
  program_->awaitLine("cropMax: -9");
  window().click(kCrop);
  await("automatic limits",
        [&](const Image& p) { return sameAsAtStart(p, kMiddle) && sameAsAtStart(p, kCropIcon); });
}

TEST_F(Controls, ProfileAndDetailsTakeTheirRoomAndGiveItBack) {
  open(false);
  openBroken();
  const auto skyAt = [](int x, int y) {
    return [x, y](const Image& picture) { return isSky(picture.at({x, y})); };
  };
  window().click(kProfile);
  program_->awaitLine("PROFILER ENABLED");
  await("room for the profile", std::not_fn(skyAt(700, 700)));
  window().click(kProfileOff);
  await("the whole view", skyAt(700, 700));

  window().click(kDetails);
  program_->awaitLine("OPGL WIDTH: 910");
  program_->awaitLine("Details Width: 220");
  program_->awaitLine("Details X: 1060");
  await("the results", std::not_fn(skyAt(1270, 700)));
  window().click(kDetails);
  await("the whole view again", [&](const Image& p) { return sameAsAtStart(p, kMiddle); });
}

}  // namespace
}  // namespace morvane::gui
