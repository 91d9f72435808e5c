// Pictures of the program's own window. Needs a display.
#include <gtest/gtest.h>
// The toolkit's and the server's headers bring macros that the test library's do not survive.
#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Gl_Window.H>
#include <FL/Fl_JPEG_Image.H>
#include <FL/fl_draw.H>
#include <FL/gl.h>
#include <FL/x.H>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>

#include "base/folders.h"
#include "export/moment_texts.h"
#include "export/screen_capture.h"
#include "tests/support/output.h"
#include "tests/support/temporary_folder.h"

namespace morvane {
namespace {

constexpr int kWidth = 400;
constexpr int kHeight = 300;
constexpr int kSplit = 104;  // black on its left, white on its right

/// Red, drawn by GL.
class RedView : public Fl_Gl_Window {
 public:
  using Fl_Gl_Window::Fl_Gl_Window;
  bool drawn = false;

 protected:
  void draw() override {
    glClearColor(1, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    drawn = true;
  }
};

class SplitWindow : public Fl_Double_Window {
 public:
  SplitWindow() : Fl_Double_Window(100, 80, kWidth, kHeight) {
    // Out of the window manager's hands it stands exactly where it is put.
    set_override();
    view = new RedView(200, 100, 160, 120);
    view->mode(FL_RGB | FL_ALPHA | FL_DOUBLE | FL_DEPTH | FL_MULTISAMPLE);  // as the 3D view's
    end();
  }
  RedView* view;

 protected:
  void draw() override {
    fl_rectf(0, 0, kSplit, h(), FL_BLACK);
    fl_rectf(kSplit, 0, w() - kSplit, h(), FL_WHITE);
    draw_children();
  }
};

enum class Shade { kBlack, kWhite, kRed, kOther };

Shade shadeAt(const Fl_Image& image, int x, int y) {
  const auto* pixel = reinterpret_cast<const unsigned char*>(image.data()[0]) +
                      3 * static_cast<std::ptrdiff_t>(y * image.w() + x);
  const auto is = [pixel](int r, int g, int b) {
    return std::abs(pixel[0] - r) + std::abs(pixel[1] - g) + std::abs(pixel[2] - b) < 60;
  };
  if (is(0, 0, 0)) return Shade::kBlack;
  if (is(255, 255, 255)) return Shade::kWhite;
  return is(255, 0, 0) ? Shade::kRed : Shade::kOther;
}

int serverErrors = 0;

class CaptureTest : public testing::Test {
 protected:
  CaptureTest() {
    setenv("USERPROFILE", folder_.path().c_str(), 1);
    window_.show();
    settle([this] { return window_.view->drawn; });
    serverErrors = 0;
    XSetErrorHandler([](Display*, XErrorEvent*) { return ++serverErrors; });
  }
  ~CaptureTest() override {
    EXPECT_EQ(serverErrors, 0);
    XSetErrorHandler(nullptr);
  }

  /// Lets the toolkit work until `done` holds and the server has seen everything.
  template <class Condition>
  static void settle(const Condition& done) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!done() && std::chrono::steady_clock::now() < end) Fl::wait(0.02);
    ASSERT_TRUE(done());
    Fl::check();
    Fl::flush();
    XSync(fl_display, False);
  }

  void moveTo(int x, int y) {
    XMoveWindow(fl_display, fl_xid(&window_), x, y);
    XSync(fl_display, False);
    window_.view->drawn = false;
    window_.redraw();
    window_.view->redraw();
    settle([this] { return window_.view->drawn; });
  }

  void expectNothing(const Screenshot& shot) const {
    EXPECT_EQ(shot.path, "");
    EXPECT_NE(shot.reason, "");
    EXPECT_FALSE(std::filesystem::exists(folder_.file("Documents")) &&
                 !std::filesystem::is_empty(screenshotsFolder()));
  }

  TemporaryFolder folder_;
  CollectedOutput output_;
  SplitWindow window_;
};

TEST_F(CaptureTest, SavesWhatTheWindowShowsUnderTheMomentsName) {
  const std::string before = pictureName(localNow());
  const Screenshot shot = captureScreenRect({140, 90}, {140 + 341, 90 + 253}, &window_);
  const std::string after = pictureName(localNow());
  ASSERT_EQ(shot.reason, "");
  const std::string folder = folder_.file("Documents/Morvane_Reader/Screenshots/");
  EXPECT_TRUE(shot.path == folder + before || shot.path == folder + after) << shot.path;
  EXPECT_EQ(output_.text(), "#### SCREENSHOT ROUTINE CALLED ####\nCANNOT ACCESS: " + folder +
                                "\nCHECK: 1\n\n{### END OF SCREENSHOT ###}\n");

  const Fl_JPEG_Image image(shot.path.c_str());
  ASSERT_EQ(image.w(), 341);
  ASSERT_EQ(image.h(), 253);
  const int split = kSplit - 40;
  for (const int y : {0, 120, 252}) {
    EXPECT_EQ(shadeAt(image, 0, y), Shade::kBlack) << y;
    EXPECT_EQ(shadeAt(image, split - 1, y), Shade::kBlack) << y;
    EXPECT_EQ(shadeAt(image, split, y), Shade::kWhite) << y;
  }
  EXPECT_EQ(shadeAt(image, 164, 94), Shade::kRed);
  EXPECT_EQ(shadeAt(image, 316, 206), Shade::kRed);
  EXPECT_EQ(shadeAt(image, 330, 100), Shade::kWhite);
}

// The window stands out of the screen, and the rectangle out of the window.
TEST_F(CaptureTest, IsBlackWhereThereIsNoPicture) {
  struct Spot {
    int x, y;
    Shade shade;
  };
  const auto expectSpots = [](const Screenshot& shot, std::initializer_list<Spot> spots) {
    ASSERT_EQ(shot.reason, "");
    const Fl_JPEG_Image image(shot.path.c_str());
    ASSERT_EQ(image.w(), 440);
    ASSERT_EQ(image.h(), 330);
    for (const Spot& spot : spots) {
      EXPECT_EQ(shadeAt(image, spot.x, spot.y), spot.shade) << spot.x << ' ' << spot.y;
    }
  };
  moveTo(-120, -50);
  expectSpots(captureScreenRect({-120, -50}, {320, 280}, &window_), {{116, 200, Shade::kBlack},
                                                                     {124, 200, Shade::kWhite},
                                                                     {200, 46, Shade::kBlack},
                                                                     {180, 54, Shade::kWhite},
                                                                     {280, 160, Shade::kRed},
                                                                     {396, 296, Shade::kWhite},
                                                                     {404, 296, Shade::kBlack},
                                                                     {396, 304, Shade::kBlack}});
  const int x = Fl::w() - 300;
  const int y = Fl::h() - 240;
  moveTo(x, y);
  expectSpots(captureScreenRect({x, y}, {x + 440, y + 330}, &window_), {{200, 80, Shade::kWhite},
                                                                        {296, 180, Shade::kRed},
                                                                        {304, 180, Shade::kBlack},
                                                                        {180, 236, Shade::kWhite},
                                                                        {180, 244, Shade::kBlack}});
}

TEST_F(CaptureTest, SurvivesAWindowThatIsCoveredHiddenOrGone) {
  Fl_Window cover(0, 0, 250, 200);
  cover.set_override();
  cover.end();
  cover.show();
  settle([&cover] { return cover.shown() != 0; });
  const Screenshot covered = captureScreenRect({100, 80}, {500, 380}, &window_);
  EXPECT_EQ(covered.reason, "");
  const Fl_JPEG_Image image(covered.path.c_str());
  EXPECT_EQ(image.w(), 400);
  EXPECT_EQ(shadeAt(image, 390, 290), Shade::kWhite);
  std::filesystem::remove(covered.path);

  XUnmapWindow(fl_display, fl_xid(&window_));
  expectNothing(captureScreenRect({100, 80}, {500, 380}, &window_));
  XMapWindow(fl_display, fl_xid(&window_));
  XMoveWindow(fl_display, fl_xid(&window_), 5000, 5000);
  expectNothing(captureScreenRect({5000, 5000}, {5100, 5100}, &window_));
  expectNothing(captureScreenRect({100, 80}, {500, 380}, &window_));
  XDestroyWindow(fl_display, fl_xid(&window_));
  expectNothing(captureScreenRect({100, 80}, {500, 380}, &window_));
  EXPECT_EQ(serverErrors, 0);
  window_.hide();
  XSync(fl_display, False);
  serverErrors = 0;  // the toolkit has just destroyed the window a second time
  expectNothing(captureScreenRect({100, 80}, {500, 380}, &window_));
  expectNothing(captureScreenRect({100, 80}, {500, 380}, nullptr));
}

TEST_F(CaptureTest, SaysWhyThereIsNone) {
  expectNothing(captureScreenRect({200, 200}, {200, 300}, &window_));
  expectNothing(captureScreenRect({200, 200}, {300, 200}, &window_));
  expectNothing(captureScreenRect({INT32_MIN, INT32_MIN}, {INT32_MAX, INT32_MAX}, &window_));
  expectNothing(
      captureScreenRect({INT32_MIN, INT32_MIN}, {INT32_MIN + 9, INT32_MIN + 9}, &window_));
  expectNothing(
      captureScreenRect({INT32_MAX - 9, INT32_MAX - 9}, {INT32_MAX, INT32_MAX}, &window_));
  // The second point may lie on any side of the first.
  const Screenshot shot = captureScreenRect({140, 90}, {120, 60}, &window_);
  const Fl_JPEG_Image image(shot.path.c_str());
  EXPECT_EQ(image.w(), 20);
  EXPECT_EQ(image.h(), 30);

  std::filesystem::remove_all(folder_.file("Documents"));
  std::ofstream(folder_.file("Documents")) << "no folder";
  const Screenshot unsaved = captureScreenRect({140, 90}, {240, 190}, &window_);
  EXPECT_EQ(unsaved.path, "");
  EXPECT_EQ(unsaved.reason, "Not a directory");
  EXPECT_NE(output_.text().find("CHECK: 0\n"), std::string::npos);
}

}  // namespace
}  // namespace morvane
