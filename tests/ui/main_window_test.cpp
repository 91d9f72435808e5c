// The main window in the test's own process: its open action, the results column and the windows
// that it opens. Needs a display.
//
// Pictures are compared with baseline images, made with the packaged Liberation Sans of Debian 12.
// A missing one fails. MORVANE_PROMOTE=1 writes new ones; look at them before you commit them.
#include <gtest/gtest.h>
// Must come after GoogleTest: their macros break its headers
#include <FL/Fl.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_PNG_Image.H>
#include <FL/Fl_Text_Display.H>
#include <FL/fl_draw.H>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "base/paths.h"
#include "tests/gui/image.h"
#include "tests/support/golden.h"
#include "tests/support/reader.h"
#include "ui/app_state.h"
#include "ui/config_manager.h"
#include "ui/file_actions.h"
#include "ui/filter_window.h"
#include "ui/gl_window.h"
#include "ui/main_window.h"
#include "ui/results_panel.h"
#include "ui/view_layout.h"
#include "ui/window_geometry.h"

namespace morvane {
namespace {

using namespace std::string_literals;

using gui::Area;
using gui::Image;
using gui::Rgb;

/// The texts of the message boxes that were shown.
std::vector<std::string> messages;

/// Closes a message box as soon as it is shown.
void closeMessages(void* /*unused*/) {
  Fl_Window* box = Fl::modal();
  if (box == nullptr) return;
  for (int i = 0; i < box->children(); ++i) {
    const Fl_Widget* child = box->child(i);
    if (child->label() != nullptr && child->w() > 200) messages.emplace_back(child->label());
  }
  box->hide();
}

/// The window, built once for all tests and `width` × `height` large.
Fl_Double_Window& mainWindow(int width = kWindowWidth, int height = kWindowHeight) {
  static bool built = false;
  if (!built) {
    appState().exeFolder = folderOf(MORVANE_PROGRAM);
    buildMainWindow();
    Fl::add_check(closeMessages);
    built = true;
  }
  Fl_Double_Window& window = *appState().mainWindow;
  window.size(width, height);
  window.show();
  window.wait_for_expose();
  while (Fl::wait(0.1) > 0) continue;
  return window;
}

void open(const std::string& path) {
  messages.clear();
  openFile(path);
  Fl::check();
}

// The inputs and findings of the fuzz targets reach every line of the readers. Some are valid.
TEST(OpenDamaged, IsRefusedOrShownAndTheLastGoodOneStays) {
  mainWindow(700, 560);  // quicker to draw
  open(MORVANE_SAMPLES "/codes/code_00.res");
  const ShownSurface& surface = appState().glView->surface();
  std::size_t opened = 0;
  std::size_t refused = 0;
  for (const char* folder : {MORVANE_FUZZ_FILES "/corpus", MORVANE_FUZZ_FILES "/regressions"}) {
    for (const auto& entry : std::filesystem::directory_iterator(folder + "/measurement"s)) {
      const std::string path = entry.path().string();
      SCOPED_TRACE(path);
      const Reader reader(path);
      const bool valid = reader.file.isValid() && reader.file.grid() != nullptr;
      const std::string shown = valid ? path : surface.measurement().path;
      const std::shared_ptr<const HeightGrid> grid = surface.measurement().grid;
      open(path);
      EXPECT_EQ(messages, valid ? std::vector<std::string>() : std::vector{"Invalid file"s});
      EXPECT_EQ(surface.measurement().path, shown);
      EXPECT_EQ(surface.measurement().grid != grid, valid);
      ++(valid ? opened : refused);
    }
  }
  EXPECT_GT(opened, 10U);
  EXPECT_GT(refused, 10U);
}

Image captured(Fl_Window& window, const Area& area) {
  window.make_current();
  const std::unique_ptr<uchar[]> bytes(fl_read_image(nullptr, area.x, area.y, area.w, area.h));
  std::vector<std::uint32_t> pixels;
  for (int i = 0; i < 3 * area.w * area.h; i += 3) {
    pixels.push_back(static_cast<std::uint32_t>(bytes[i] << 16 | bytes[i + 1] << 8 | bytes[i + 2]));
  }
  return {area.w, area.h, std::move(pixels)};
}

/// How many pixels of a picture differ from a baseline. Letters may be smoothed a little
/// differently.
int pixelsUnlike(const std::string& baseline, const Image& picture) {
  const Fl_PNG_Image png(baseline.c_str());
  if (png.w() != picture.width() || png.h() != picture.height() || png.d() != 3) return INT_MAX;
  const auto* expected = reinterpret_cast<const uchar*>(png.data()[0]);
  int unlike = 0;
  for (int i = 0; i < png.w() * png.h(); ++i, expected += 3) {
    const Rgb wanted{expected[0], expected[1], expected[2]};
    unlike += difference(picture.at({i % png.w(), i / png.w()}), wanted) > 48 ? 1 : 0;
  }
  return unlike;
}

/// Expects `picture` to look like the baseline of this name.
void expectBaseline(const std::string& name, const Image& picture) {
  const std::string baseline = MORVANE_BASELINES "/" + name + ".png";
  if (std::getenv("MORVANE_PROMOTE") != nullptr) picture.savePng(baseline);
  EXPECT_LE(pixelsUnlike(baseline, picture), 40) << baseline;
}

// All files are shown in turn, so nothing of the last one may stay in the column. Those of version
// 3 come first: they have no algorithm code, so they would keep that of the last file.
TEST(Column, LooksAsItDidForEveryLayout) {
  Fl_Double_Window& window = mainWindow();
  constexpr Area kColumn = windowLayout(kWindowWidth, kWindowHeight, true, false).results;
  Image shown;
  open(MORVANE_SAMPLES "/codes/code_00.res");
  for (const std::string name : {"version_3", "version_3_dull", "09", "code_01", "10", "code_02",
                                 "04", "13", "03", "05", "06", "07", "08", "11", "12"}) {
    const bool offered = name.size() == 2;
    open(MORVANE_SAMPLES "/" +
         (name == "04" ? "panel" : (offered ? "codes/code_" : "codes/") + name) + ".res");
    EXPECT_EQ(appState().detailsButton->visible() != 0, offered) << name;
    if (appState().resultsPanel->visible() == 0) toggleResultsColumn();
    while (Fl::wait(0.1) > 0) continue;
    const Image picture = captured(window, kColumn);
    expectBaseline("column_" + name, picture);
    shown = picture;
  }
  // If the column is lower, the rows keep their places and its lower edge cuts them off.
  constexpr Area kUpper{kColumn.x, kColumn.y, kColumn.w, 300};
  constexpr Area kBelow{kColumn.x, kColumn.y + kUpper.h, kColumn.w, kColumn.h - kUpper.h};
  appState().resultsPanel->size(kUpper.w, kUpper.h);
  window.redraw();
  while (Fl::wait(0.1) > 0) continue;
  EXPECT_TRUE(captured(window, kUpper) == shown.part({0, 0, kUpper.w, kUpper.h}));
  const auto isDrawn = [](const Rgb& c) { return c != gui::kBlack; };
  EXPECT_EQ(captured(window, kBelow).count(isDrawn), 0);
  EXPECT_GT(shown.part({0, kUpper.h, kBelow.w, kBelow.h}).count(isDrawn), 0);
  layoutViews();
}

TEST(Windows, EachLooksAsItDid) {
  Fl::visible_focus(0);  // which window has the focus depends on the window manager
  Fl_Double_Window& window = mainWindow();
  // The frames of a small surface are never coarse.
  open(golden::file("float_sum/measurement.res").string());
  const AppState& app = appState();
  app.profileButton->do_callback();
  while (Fl::wait(0.1) > 0) continue;
  expectBaseline("main", captured(window, {0, 0, kWindowWidth, kWindowHeight}));
  const Area agreement{0, 0, 700, 800};  // beside it is the time of the build
  for (const auto& [name, other, area] :
       std::initializer_list<std::tuple<std::string, Fl_Window*, Area>>{
           {"about", app.aboutWindow, agreement},
           {"filter", app.filterWindow, {0, 0, 400, 400}},
           {"heat_map", app.heatMapDialog, {0, 0, 290, 160}},
           {"connections", app.configManager, {0, 0, 550, 500}}}) {
    other->show();
    other->wait_for_expose();
    while (Fl::wait(0.1) > 0) continue;
    expectBaseline(name, captured(*other, area));
    other->hide();
  }
}

TEST(Column, TextThatIsCutHasATooltip) {
  mainWindow();
  ResultsPanel& panel = *appState().resultsPanel;
  // The tooltip of the field whose text begins with `text`, for a part named `part`.
  const auto tipOf = [&](std::string_view part, std::string_view text) -> std::string {
    Measurement measurement;
    measurement.header.headerVersion = 4;
    measurement.header.algorithmType = 9;
    std::ranges::copy(part, measurement.header.headerText3.begin());
    measurement.results.gmEcRm.fill(-12345.678F);
    panel.take(measurement);
    panel.showResults();
    for (int i = 0; i < panel.children(); ++i) {
      const auto* display = dynamic_cast<const Fl_Text_Display*>(panel.child(i));
      if (display == nullptr || display->visible() == 0) continue;
      const std::unique_ptr<char, decltype(&std::free)> shown(display->buffer()->text(),
                                                              &std::free);
      if (!std::string_view(shown.get()).starts_with(text)) continue;
      return display->tooltip() != nullptr ? display->tooltip() : "none";
    }
    return "no such text";
  };
  const char* part = "@Door panel, left, third of the second batch";
  EXPECT_EQ(tipOf(part, "@Door"), std::string("@") + part);
  EXPECT_EQ(tipOf(part, "-12345.678mm"), "-12345.678mm");
  EXPECT_EQ(tipOf("Door", "Door"), "none");
}

}  // namespace
}  // namespace morvane
