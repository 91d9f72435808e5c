// What the 3D view shows, as pixels of the real window.
#include <gtest/gtest.h>

#include <cmath>

#include "surface/heat_map_scale.h"
#include "tests/gui/program.h"
#include "tests/support/golden.h"

namespace morvane::gui {
namespace {

const std::string kPanel = golden::measurement("panel");

/// The pixel at device coordinates (-1 to 1, y upwards) of the view.
Point pixelAt(const Image& picture, double x, double y) {
  const Area view = viewOf(picture);
  return {view.x + static_cast<int>((x + 1) / 2 * view.w),
          view.y + static_cast<int>((1 - y) / 2 * view.h)};
}

constexpr Area kLogo{205, 352, 1000, 120};

bool isLit(const Rgb& colour) { return colour != kBlack; }

int toScreen(double linear) {
  return static_cast<int>(std::lround(
      255 * (linear <= 0.0031308 ? 12.92 * linear : 1.055 * std::pow(linear, 1 / 2.4) - 0.055)));
}

constexpr double kKeyTop = 0.7;
constexpr double kKeyLeft = 0.725;
constexpr double kKeyRight = 0.775;

const std::size_t kKeyBands = standardColours().keyBands;

/// The colour within a band of the key, `part` (0 to 1) of its height below its top.
Rgb keyColour(std::size_t band, double part) {
  const auto stops = standardColours().stops;
  const auto &below = stops[kKeyBands - 1 - band], &above = stops[kKeyBands - band];
  const auto channel = [&](std::size_t i) {
    return toScreen((1.0 - part) * above[i] + part * below[i]);
  };
  return {channel(0), channel(1), channel(2)};
}

/// Expects `colour` at both ends of the key's row at device height `y`, and sky to the left of it.
void expectKeyRow(const Image& picture, double y, const Rgb& colour) {
  for (const double x : {kKeyLeft + 0.004, kKeyRight - 0.004}) {
    const Rgb shown = picture.at(pixelAt(picture, x, y));
    EXPECT_LE(difference(shown, colour), 6) << shown << " for " << colour << " at y " << y;
  }
  EXPECT_TRUE(isSky(picture.at(pixelAt(picture, kKeyLeft - 0.006, y)))) << "left of the key";
}

void expectKey(const Image& picture) {
  for (std::size_t band = 0; band < kKeyBands; ++band) {
    for (const double part : {0.1, 0.5, 0.9}) {
      const double below =
          (static_cast<double>(band) + part) * 2 * kKeyTop / static_cast<double>(kKeyBands);
      expectKeyRow(picture, kKeyTop - below, keyColour(band, part));
    }
  }
  for (const double y : {kKeyTop + 0.01, -kKeyTop - 0.01}) {
    EXPECT_TRUE(isSky(picture.at(pixelAt(picture, 0.75, y)))) << "beyond the key's end, y " << y;
  }
}

/// Pixels from the middle of the view to the edge of the surface, in the direction of `step`.
int reach(const Image& picture, Point step) {
  const Point middle = pixelAt(picture, 0, 0);
  int pixels = 0;
  while (!isSky(picture.at({middle.x + pixels * step.x, middle.y + pixels * step.y}))) ++pixels;
  return pixels;
}

/// Checks that the panel of `columns` × `rows` points lies around the view's middle. A thousand
/// points are one unit; the camera is at a distance of 3 and has a field of view of 45 degrees.
void expectCentred(const Image& picture, int columns, int rows) {
  const double pixelsPerPoint = viewOf(picture).h / (2 * 3 * std::tan(M_PI / 8)) / 1000;
  const double across = columns / 2.0 * pixelsPerPoint;
  const double up = rows / 2.0 * pixelsPerPoint;
  EXPECT_NEAR(reach(picture, {-1, 0}), across, 4);
  EXPECT_NEAR(reach(picture, {1, 0}), across, 4);
  EXPECT_NEAR(reach(picture, {0, -1}), up, 4);
  EXPECT_NEAR(reach(picture, {0, 1}), up, 4);
}

TEST(Picture, IsBlackWithTheLogoUntilAFileIsOpen) {
  Program program;
  const Image start = program.mainWindow().awaitPicture(
      "the logo", [&](const Image& picture) { return picture.part(kLogo).count(isLit) > 1000; });
  // The control column covers two pixels of the view.
  EXPECT_EQ(start.part({152, 25, start.width() - 152, kLogo.y - 25}).count(isLit), 0);
  const int below = kLogo.y + kLogo.h;
  EXPECT_EQ(start.part({152, below, start.width() - 152, start.height() - below}).count(isLit), 0);

  program.open(kPanel);
  const Image opened = program.awaitSurface();
  EXPECT_EQ(opened.part({kLogo.x, kLogo.y, 300, kLogo.h}).count(isSky), 300 * kLogo.h);
}

TEST(Picture, ShowsTheSurfaceColouredByHeightAndItsKeyInWindowsOfAnySize) {
  Process server({"Xvfb", "-displayfd", "1", "-screen", "0", "2600x1500x24", "+extension", "GLX",
                  "-nolisten", "tcp", "-noreset"});
  Program program({kPanel}, {.display = ":" + server.awaitLine("")});
  for (const auto& [width, height] :
       {std::pair{kWindowWidth, kWindowHeight}, {kMinWidth, kMinHeight}, {2560, 1440}}) {
    program.mainWindow().resize(width, height);
    const Image picture = program.awaitSurface();
    expectKey(picture);
    expectCentred(picture, 400, 300);
    const Point middle = pixelAt(picture, 0, 0);
    const Image surface = picture.part({middle.x - 40, middle.y - 25, 80, 50});
    EXPECT_LT(surface.count([](const Rgb& c) { return chroma(c) < 40; }), 80 * 50 / 20);
    EXPECT_GT(surface.count([](const Rgb& c) { return c.r > c.b + 80; }), 80 * 50 / 100) << "red";
    EXPECT_GT(surface.count([](const Rgb& c) { return c.b > c.r + 80; }), 80 * 50 / 100) << "blue";
    // The controls keep their places.
    EXPECT_GT(picture.part(inWindow(control::kDetails)).count(isLit), 400);
  }
}

TEST(Picture, WithoutGlIsReportedOnceAndWithoutADialog) {
  Process server({"Xvfb", "-displayfd", "1", "-screen", "0", "1600x1000x24", "-extension", "GLX",
                  "-nolisten", "tcp", "-noreset"});
  const std::string display = ":" + server.awaitLine("");
  Program program({kPanel}, {.display = display});
  program.awaitLine("OpenGL", Stream::kErrors);
  program.open(kPanel);
  program.awaitLine("Updating Res File...");
  program.awaitLine("Updating Res File...");
  // The logo is gone once a file is open, and nothing replaces it.
  program.mainWindow().awaitPicture(
      "an empty view", [](const Image& picture) { return picture.part(kLogo).count(isLit) == 0; });
  // A modal dialog would take the key.
  EXPECT_EQ(program.quit(), 0);
  int told = 0;
  for (const std::string& line : program.lines(Stream::kErrors)) {
    told += line.find("OpenGL") != std::string::npos ? 1 : 0;
  }
  EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace morvane::gui
