// The control column, used with mouse and keyboard as an operator does.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "tests/gui/on_show.h"
#include "tests/support/golden.h"

namespace morvane::gui {
namespace {

/// A button without its edge, since the edge also shows the focus.
constexpr Area iconOf(const Area& button) {
  return inWindow({button.x + 8, button.y + 8, button.w - 16, button.h - 16});
}

constexpr Area kHeatMapIcon = iconOf(control::kHeatMap);
constexpr Area kLimitsIcon = iconOf(control::kLimits);
constexpr Area kReadout = inWindow(control::kReadout);
constexpr Area kMaximum = inWindow(control::kMaximum);
constexpr Area kMinimum = inWindow(control::kMinimum);
constexpr Area kMiddle{680, 380, 70, 60};  // well inside the surface
constexpr Area kKey{1130, 140, 20, 540};

bool isGrey(const Image& picture) {
  return picture.part(kMiddle).count([](const Rgb& c) { return chroma(c) > 12; }) == 0;
}
bool showsKey(const Image& picture) {
  return picture.part(kKey).count([](const Rgb& c) { return chroma(c) > 80; }) > 5000;
}

class Controls : public OnShow {
 protected:
  /// Opens the reference panel, with or without the bitmaps beside it. Then a damaged file, after
  /// which everything must work as before.
  void open(bool withBitmaps) {
    std::string path = golden::measurement("panel");
    if (!withBitmaps) {
      std::filesystem::copy_file(path, folder_.file("alone.res"));
      path = folder_.file("alone.res");
    }
    OnShow::open(path);
    program_->open(brokenFile(folder_));
    program_->answerAlert();
  }
};

TEST_F(Controls, HeatMapGivesWayToTheBitmapAndComesBack) {
  open(true);
  program_->press(control::kHeatMap);
  await("the bitmap on a flat surface, as the readout says", [&](const Image& p) {
    return isGrey(p) && !showsKey(p) && !sameAsAtStart(p, kHeatMapIcon) &&
           !sameAsAtStart(p, kReadout);
  });
  program_->press(control::kHeatMap);
  await("the heat map and its key", [&](const Image& p) {
    return showsKey(p) && sameAsAtStart(p, kReadout) && sameAsAtStart(p, kMiddle);
  });
}

TEST_F(Controls, ScaleStepsLeadBackToWhereTheyBegan) {
  open(false);
  program_->press(control::kPlus);
  await("a new readout", [&](const Image& p) { return !sameAsAtStart(p, kReadout); });
  program_->press(control::kMinus);
  await("the old readout", [&](const Image& p) { return sameAsAtStart(p, kReadout); });
  // A slider that is dragged beyond its end stays at its end.
  constexpr Area kSlider = inWindow(control::kSlider);
  const Point knob = middleOf(kSlider);
  window().drag(knob, {kSlider.x + 400, knob.y});
  await("a steeper surface, the knob at the end", [&](const Image& p) {
    const Area end{kSlider.x + kSlider.w - 18, kSlider.y, 14, kSlider.h};
    return !sameAsAtStart(p, kReadout) && !sameAsAtStart(p, kMiddle) &&
           p.part(end).count([](const Rgb& c) { return c.r > 120; }) > 60;
  });
  program_->press(control::kReset);
  await("the first picture",
        [&](const Image& p) { return sameAsAtStart(p, kReadout) && sameAsAtStart(p, kMiddle); });
}

TEST_F(Controls, TypedLimitsAreInForceUntilTheButtonReturnsToAutomatic) {
  open(false);
  program_->press(control::kLimits);
  await("the other icon", [&](const Image& p) { return !sameAsAtStart(p, kLimitsIcon); });
  type(window(), kMaximum, "1.5abc");
  program_->awaitLine("CROP MAX: 1.5");
  program_->awaitLine("cropMax: 1.5");
  type(window(), kMinimum, "-0.5");
  program_->awaitLine("cropMin: -0.5");
  await("clamped colours",
        [&](const Image& p) { return showsKey(p) && !sameAsAtStart(p, kMiddle); });
  // Limits that make no sense are accepted unchanged and leave the program usable.
  type(window(), kMaximum, "");
  program_->awaitLine("cropMax: 0");
  type(window(), kMaximum, "nan");
  type(window(), kMaximum, "-9");
  program_->awaitLine("cropMax: -9");
  program_->press(control::kLimits);
  await("automatic limits",
        [&](const Image& p) { return sameAsAtStart(p, kMiddle) && sameAsAtStart(p, kLimitsIcon); });
}

TEST_F(Controls, ProfileAndDetailsTakeTheirRoomAndGiveItBack) {
  open(false);
  const auto skyAt = [](int x, int y) {
    return [x, y](const Image& picture) { return isSky(picture.at({x, y})); };
  };
  program_->press(control::kProfile);
  program_->awaitLine("PROFILER ENABLED");
  await("room for the profile", std::not_fn(skyAt(700, 700)));
  program_->press(control::kProfileOff);
  await("the whole view", skyAt(700, 700));

  program_->press(control::kDetails);
  program_->awaitLine("OPGL WIDTH: 910");
  program_->awaitLine("Details Width: 220");
  program_->awaitLine("Details X: 1060");
  await("the results", std::not_fn(skyAt(1270, 700)));
  program_->press(control::kDetails);
  await("the whole view again", [&](const Image& p) { return sameAsAtStart(p, kMiddle); });
}

}  // namespace
}  // namespace morvane::gui
