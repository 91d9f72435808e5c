// The mouse in the 3D view: the camera and the profile pins.
#include <gtest/gtest.h>

#include <cmath>

#include "tests/gui/on_show.h"
#include "tools/measurement_builder.h"

namespace morvane::gui {
namespace {

constexpr Area kView{155, 60, 900, 480};   // inside the view with and without the profile window
constexpr Area kPlot{380, 560, 740, 160};  // not where the key was before
constexpr Point kCentre = middleOf(kFirstLayout.view);
// The centre of the view above the profile window.
constexpr Point kProfileCentre =
    middleOf(windowLayout(kWindowWidth, kWindowHeight, false, true).view);
constexpr int kWidth = 760;  // columns: wide enough for the large pins
constexpr int kHeight = 400;

bool isSurface(const Rgb& c) { return chroma(c) > 100; }
bool isFirstPin(const Rgb& c) { return c.r > 200 && c.g < 60 && c.b > 200; }
bool isSecondPin(const Rgb& c) { return difference(c, kBlack) < 12; }
bool isCurve(const Rgb& c) { return c.b > c.r + 70 && c.b > c.g + 40; }

/// A wave along x about `level` that ends at the same height as it begins.
MeasurementContent wave(int width, int height, double level) {
  MeasurementContent content;
  content.width = width;
  content.height = height;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) content.heights.push_back(level + 5.0 * std::sin(x * 0.0331));
  }
  return content;
}

class Mouse : public OnShow {
 protected:
  void open(int width, int height, double level = 0.0) {
    writeBytes(folder_.file("wave.res"), encodeMeasurement(wave(width, height, level)));
    OnShow::open(folder_.file("wave.res"));
  }
  static int surfacePixels(const Image& picture) { return picture.part(kView).count(isSurface); }
  static Point centreOf(const Image& picture, bool (*is)(const Rgb&)) {
    const Point found = picture.part(kView).centreOf(is);
    return {found.x + kView.x, found.y + kView.y};
  }
  void awaitPinAt(Point expected, int tolerance) {
    await("the pin at " + std::to_string(expected.x) + ", " + std::to_string(expected.y),
          [&](const Image& p) {
            const Point at = centreOf(p, isFirstPin);
            return std::abs(at.x - expected.x) <= tolerance &&
                   std::abs(at.y - expected.y) <= tolerance;
          });
  }
  bool sameView(const Image& picture) { return sameAsAtStart(picture, kView); }
};

TEST_F(Mouse, TurnsPansAndZooms) {
  open(300, 300);
  const int pixels = surfacePixels(start_);
  const auto goneBack = [this] {
    program_->press(control::kReset);
    await("the start view", [this](const Image& p) { return sameView(p); });
  };
  // To the left and back again.
  window().drag(kCentre, {kCentre.x - 200, kCentre.y});
  await("a turned surface",
        [&](const Image& p) { return surfacePixels(p) < 0.95 * pixels && !sameView(p); });
  window().drag({kCentre.x - 200, kCentre.y}, kCentre);
  await("the surface turned back",
        [&](const Image& p) { return std::abs(surfacePixels(p) - pixels) < 0.02 * pixels; });
  goneBack();
  // Outside the arcball its rim counts: the surface turns in the plane of the picture.
  window().drag({1200, 60}, {230, 60});
  await("a surface turned round its middle",
        [&](const Image& p) { return !sameView(p) && surfacePixels(p) > 0.8 * pixels; });
  goneBack();

  window().drag(kCentre, {kCentre.x + 150, kCentre.y + 40}, {3});
  await("a panned surface", [&](const Image& p) {
    const Point middle = centreOf(p, isSurface);
    const Point before = centreOf(start_, isSurface);
    // A pixel of motion pans by a thousandth of a model unit, which is a third of a pixel here.
    return std::abs(middle.x - before.x - 47) <= 3 && std::abs(middle.y - before.y - 12) <= 3;
  });
  goneBack();

  window().wheel(kCentre, 8);
  await("a larger surface", [&](const Image& p) { return surfacePixels(p) > 1.3 * pixels; });
  EXPECT_NE(program_->awaitLine("SCALE: "), "");
  goneBack();
  // The pointer enters the view without a motion event; the wheel must still zoom to it.
  window().wheel({1000, kCentre.y}, 8);
  await("a larger surface, the pointer's place kept",
        [&](const Image& p) { return centreOf(p, isSurface).x < kCentre.x - 40; });
  goneBack();
  // Each motion event zooms by one step. Events that arrive while a frame is drawn are merged.
  for (int i = 0; i < 12; ++i) window().drag(kCentre, {kCentre.x, kCentre.y + 100}, {1, 3});
  await("a smaller surface", [&](const Image& p) { return surfacePixels(p) < 0.95 * pixels; });
  goneBack();
}

TEST_F(Mouse, DragsAPinUnderThePointerAndStopsItAtEveryEdge) {
  open(kWidth, kHeight);
  program_->press(control::kProfile);
  Image picture = await("the pins", [](const Image& p) {
    return p.part(kView).count(isFirstPin) > 100 && p.part(kView).count(isSecondPin) > 100 &&
           p.part(kPlot).count(isCurve) > 200;
  });
  const Image firstPlot = picture.part(kPlot);
  const Point corner = centreOf(picture, isFirstPin);
  const auto drag = [&](Point to) { window().drag(centreOf(window().capture(), isFirstPin), to); };
  drag(kProfileCentre);
  awaitPinAt(kProfileCentre, 5);
  await("another section", [&](const Image& p) { return !(p.part(kPlot) == firstPlot); });
  // Perspective and the sides of the pin shift its visible centre by a few pixels.
  constexpr double kPixelsPerUnit = 525 / (2 * 2.9 * 0.4142);
  const int halfWidth = static_cast<int>(0.38 * kPixelsPerUnit);
  const int halfHeight = static_cast<int>(0.2 * kPixelsPerUnit);
  drag({200, kProfileCentre.y});
  awaitPinAt({kProfileCentre.x - halfWidth, kProfileCentre.y}, 8);
  drag({1240, kProfileCentre.y});
  awaitPinAt({kProfileCentre.x + halfWidth, kProfileCentre.y}, 8);
  drag({kProfileCentre.x, 40});
  awaitPinAt({kProfileCentre.x, kProfileCentre.y - halfHeight}, 8);
  drag({kProfileCentre.x, 530});
  awaitPinAt({kProfileCentre.x, kProfileCentre.y + halfHeight}, 8);
  drag({160, 540});
  awaitPinAt(corner, 2);
  // The view has not turned.
  EXPECT_TRUE(await("the first picture", [&](const Image& p) {
                return p.part(kPlot) == firstPlot;
              }).part(kView) == picture.part(kView));

  program_->press(control::kSwapPins);
  await("the pins swapped",
        [&](const Image& p) { return std::abs(centreOf(p, isSecondPin).y - corner.y) < 12; });
}

TEST_F(Mouse, DragsAPinOverHeightsFarFromZeroAndUnderTheKey) {
  open(kWidth, kHeight, 500.0);
  program_->press(control::kProfile);
  const Image first =
      await("the pins", [](const Image& p) { return p.part(kView).count(isFirstPin) > 100; });
  window().drag(centreOf(first, isFirstPin), kProfileCentre);
  awaitPinAt(kProfileCentre, 5);
  // Pans until the surface is under the key, with the first pin and the section line.
  constexpr Area kKey{1128, 120, 22, 330};
  for (int i = 0; i < 5; ++i) window().drag({650, 500}, {1050, 500}, {3});
  const Image panned = await("the surface under the key", [](const Image& p) {
    return p.part({1156, 120, 20, 330}).count(isSurface) > 500;
  });
  EXPECT_TRUE(panned.part(kKey) == first.part(kKey));
}

TEST_F(Mouse, KeepsBothPicturesThroughResizingAndManySwitches) {
  open(200, 200);
  for (int i = 0; i < 20; ++i) {
    program_->press(i % 2 == 0 ? control::kProfile : control::kProfileOff);
  }
  await("the start view without pins", [this](const Image& p) { return sameView(p); });

  program_->press(control::kProfile);
  await("the plot", [](const Image& p) { return p.part(kPlot).count(isCurve) > 200; });
  // If the window is resized during a rotation, view and plot keep their pictures.
  window().hold(kProfileCentre, {kProfileCentre.x + 60, kProfileCentre.y});
  window().resize(1000, 760);
  window().release();
  await("both pictures in the smaller window", [](const Image& p) {
    const Area plot{300, 530, 650, 150};
    const Area view{155, 60, 700, 440};
    return p.width() == 1000 && p.part(plot).count(isCurve) > 150 &&
           p.part(view).count(isSurface) > 100 && isSky(p.at({400, 200}));
  });
  window().resize(kWindowWidth, kWindowHeight);
  await("both pictures in the first size", [](const Image& p) {
    return p.width() == kWindowWidth && p.part(kPlot).count(isCurve) > 200 &&
           surfacePixels(p) > 100;
  });
}

}  // namespace
}  // namespace morvane::gui
