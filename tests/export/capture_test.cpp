// Pictures of the program's own window. Needs a display.
#include <gtest/gtest.h>
// Must come after GoogleTest: their macros break its headers
#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_JPEG_Image.H>
#include <FL/fl_draw.H>
#include <FL/x.H>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "base/folders.h"
#include "export/moment_texts.h"
#include "export/screen_capture.h"
#include "tests/support/output.h"
#include "tests/support/temporary_folder.h"

namespace morvane {
namespace {

constexpr int kSplit = 104;  // black on its left, white on its right

class SplitWindow : public Fl_Double_Window {
 public:
  SplitWindow() : Fl_Double_Window(100, 80, 400, 300) {
    // Not managed by the window manager, so its position is exact.
    set_override();
    end();
  }
  bool drawn = false;

 protected:
  void draw() override {
    fl_rectf(0, 0, kSplit, h(), FL_BLACK);
    fl_rectf(kSplit, 0, w() - kSplit, h(), FL_WHITE);
    drawn = true;
  }
};

ScreenPart greyPart(ScreenPoint topLeft, int width, int height) {
  ScreenPart part{topLeft, RgbImage(width, height)};
  std::ranges::fill(part.image.pixels, static_cast<unsigned char>(128));
  return part;
}

struct Spot {
  int x, y, shade;
};
constexpr int kBlack = 0;
constexpr int kGrey = 128;
constexpr int kWhite = 255;

void expectSpots(const Screenshot& shot, int width, int height, const std::vector<Spot>& spots) {
  ASSERT_EQ(shot.reason, "");
  const Fl_JPEG_Image image(shot.path.c_str());
  ASSERT_EQ(image.w(), width);
  ASSERT_EQ(image.h(), height);
  const auto* pixels = reinterpret_cast<const unsigned char*>(image.data()[0]);
  for (const Spot& spot : spots) {
    EXPECT_NEAR(pixels[3 * (spot.y * width + spot.x)], spot.shade, 20) << spot.x << ' ' << spot.y;
  }
}

int serverErrors = 0;

class CaptureTest : public testing::Test {
 protected:
  CaptureTest() {
    setenv("USERPROFILE", folder_.path().c_str(), 1);
    window_.show();
    settle();
    serverErrors = 0;
    XSetErrorHandler([](Display*, XErrorEvent*) { return ++serverErrors; });
  }
  ~CaptureTest() override {
    EXPECT_EQ(serverErrors, 0);
    XSetErrorHandler(nullptr);
  }

  /// Runs FLTK's event loop until the window is drawn, and waits for the X server.
  void settle() {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!window_.drawn && std::chrono::steady_clock::now() < end) Fl::wait(0.02);
    ASSERT_TRUE(window_.drawn);
    Fl::check();
    XSync(fl_display, False);
  }

  void expectNothing(const Screenshot& shot) const {
    EXPECT_EQ(shot.path, "");
    EXPECT_NE(shot.reason, "");
    EXPECT_TRUE(shot.jpeg.empty());
    EXPECT_FALSE(std::filesystem::exists(folder_.file("Documents")) &&
                 !std::filesystem::is_empty(screenshotsFolder()));
  }

  TemporaryFolder folder_;
  CollectedOutput output_;
  SplitWindow window_;
};

TEST_F(CaptureTest, SavesWhatTheWindowShowsUnderANameWithTheTime) {
  const std::string before = pictureName(localNow());
  // One of the pictures pasted over it is inside, the other reaches beyond two of its sides.
  const std::vector<ScreenPart> own = {greyPart({240, 190}, 50, 60),
                                       greyPart({400, 300}, 500, 500)};
  const Screenshot shot = captureScreenRect({140, 90}, {140 + 381, 90 + 313}, &window_, own);
  const std::string after = pictureName(localNow());
  const std::string folder = folder_.file("Documents/Morvane_Reader/Screenshots/");
  EXPECT_TRUE(shot.path == folder + before || shot.path == folder + after) << shot.path;
  EXPECT_EQ(output_.text(), "#### SCREENSHOT ROUTINE CALLED ####\nCANNOT ACCESS: " + folder +
                                "\nCHECK: 1\n\n{### END OF SCREENSHOT ###}\n");
  const int split = kSplit - 40;
  expectSpots(shot, 381, 313,
              {{split - 1, 0, kBlack},
               {split, 0, kWhite},
               {split - 1, 252, kBlack},
               {split, 252, kWhite},
               {102, 102, kGrey},
               {147, 157, kGrey},
               {97, 130, kWhite},
               {152, 130, kWhite},
               {262, 212, kGrey},
               {380, 312, kGrey},
               {257, 212, kWhite},
               {356, 100, kWhite},
               {364, 100, kBlack},
               {100, 286, kWhite},
               {100, 294, kBlack}});
}

// The window is larger than the screen on every side, and the rectangle larger than the window.
TEST_F(CaptureTest, IsBlackWhereThereIsNoPicture) {
  const int width = Fl::w();
  const int height = Fl::h();
  window_.resize(-40, -30, width + 80, height + 60);
  window_.drawn = false;
  settle();
  const ScreenPart own = greyPart({-20, 200}, 40, 40);
  expectSpots(captureScreenRect({-60, -50}, {width + 60, height + 50}, &window_, {&own, 1}),
              width + 120, height + 100,
              {{56, 100, kBlack},
               {66, 100, kBlack},  // inside the window
               {200, 46, kBlack},
               {200, 54, kWhite},
               {44, 270, kGrey},
               {76, 270, kGrey},
               {width + 56, 100, kWhite},
               {width + 64, 100, kBlack},
               {200, height + 46, kWhite},
               {200, height + 54, kBlack}});
}

TEST_F(CaptureTest, SurvivesAWindowThatIsHiddenOrGone) {
  const ScreenPoint from{100, 80};
  const ScreenPoint to{500, 380};
  XUnmapWindow(fl_display, fl_xid(&window_));
  expectNothing(captureScreenRect(from, to, &window_));
  XMapWindow(fl_display, fl_xid(&window_));
  XMoveWindow(fl_display, fl_xid(&window_), 5000, 5000);
  expectNothing(captureScreenRect({5000, 5000}, {5100, 5100}, &window_));
  expectNothing(captureScreenRect(from, to, &window_));
  XDestroyWindow(fl_display, fl_xid(&window_));
  expectNothing(captureScreenRect(from, to, &window_));
  EXPECT_EQ(serverErrors, 0);
  window_.hide();
  XSync(fl_display, False);
  serverErrors = 0;  // FLTK has just destroyed the window a second time
  expectNothing(captureScreenRect(from, to, &window_));
  expectNothing(captureScreenRect(from, to, nullptr));
}

TEST_F(CaptureTest, SaysWhyThereIsNone) {
  constexpr int kFar = INT32_MAX - 9;
  expectNothing(captureScreenRect({200, 200}, {200, 300}, &window_));
  expectNothing(captureScreenRect({INT32_MIN, INT32_MIN}, {INT32_MAX, INT32_MAX}, &window_));
  expectNothing(captureScreenRect({-kFar, -kFar}, {9 - kFar, 9 - kFar}, &window_));
  expectNothing(captureScreenRect({kFar, kFar}, {INT32_MAX, INT32_MAX}, &window_));
  // The second point may lie on any side of the first.
  expectSpots(captureScreenRect({140, 90}, {120, 60}, &window_), 20, 30, {});

  std::filesystem::remove_all(folder_.file("Documents"));
  std::ofstream(folder_.file("Documents")) << "no folder";
  const Screenshot unsaved = captureScreenRect({140, 90}, {240, 190}, &window_);
  EXPECT_EQ(unsaved.path, "");
  EXPECT_EQ(unsaved.reason, "Not a directory");
  EXPECT_FALSE(unsaved.jpeg.empty());
  EXPECT_NE(output_.text().find("CHECK: 0\n"), std::string::npos);
}

}  // namespace
}  // namespace morvane
