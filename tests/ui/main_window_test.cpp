// The main window in the test's own process: its open action and the results column. Needs a
// display.
//
// Pictures of the column are held against baselines that were looked at, made with the packaged
// Liberation Sans of Debian 12. A missing one fails; MORVANE_PROMOTE=1 writes them anew, to be
// looked at before they are committed.
#include <gtest/gtest.h>
// The toolkit's headers bring macros that the test library's do not survive.
#include <FL/Fl.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_PNG_Image.H>
#include <FL/Fl_Text_Display.H>
#include <FL/fl_draw.H>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "base/memory_advice.h"
#include "base/paths.h"
#include "resfile/res_file.h"
#include "tests/gui/image.h"
#include "tests/support/golden.h"
#include "tests/support/temporary_folder.h"
#include "ui/app_state.h"
#include "ui/file_actions.h"
#include "ui/gl_window.h"
#include "ui/main_window.h"
#include "ui/results_panel.h"
#include "ui/view_layout.h"

namespace morvane {
namespace {

using gui::Area;
using gui::Image;
using gui::Rgb;

/// Closes every message box as soon as it is up, and keeps what it said.
std::vector<std::string> messages;

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
Fl_Double_Window& mainWindow(int width, int height) {
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

/// What the reader alone says of a file.
bool isValid(const std::string& path) {
  std::ostringstream log;
  resFile file(log);
  file.update(path);
  return file.isValid() && file.grid() != nullptr;
}

/// Memory held when the program has tidied up, as it does while it is left alone.
double residentPages() {
  releaseSpareMemory();
  std::ifstream file("/proc/self/statm");
  double size = 0.0;
  double resident = 0.0;
  file >> size >> resident;
  return resident;
}

/// Cuts a file anywhere, or puts extremes over a few places of its header and its first heights:
/// eight bytes 0xFF are a NaN, 0x7F a huge number, 0 and 0x80 nothing or a sign.
std::string broken(std::string bytes, std::mt19937& random) {
  const auto upTo = [&](std::size_t most) {
    return std::uniform_int_distribution<std::size_t>(0, most)(random);
  };
  if (upTo(3) == 0) return bytes.substr(0, upTo(bytes.size()));
  for (std::size_t places = 1 + upTo(2); places > 0; --places) {
    const std::size_t at = upTo(std::min<std::size_t>(bytes.size(), 300) - 1);
    const std::size_t count = std::min(std::size_t{1} << upTo(3), bytes.size() - at);
    bytes.replace(at, count, count, "\x00\x7F\x80\xFF\x01"[upTo(4)]);
  }
  return bytes;
}

TEST(OpenMutants, AreRefusedOrShownAndTheLastGoodOneStays) {
  mainWindow(700, 560);  // quicker to draw
  std::vector<std::string> seeds;
  for (const auto& entry : std::filesystem::directory_iterator(MORVANE_SAMPLES "/codes")) {
    seeds.push_back(entry.path().string());
  }
  std::ranges::sort(seeds);
  ASSERT_GE(seeds.size(), 12U);
  open(seeds.front());
  std::string shown = seeds.front();
  const TemporaryFolder folder;
  std::mt19937 random(1);  // NOLINT(bugprone-random-generator-seed): the same files every time
  const char* wanted = std::getenv("MORVANE_MUTANTS");
  const std::size_t count = wanted != nullptr ? std::strtoul(wanted, nullptr, 10) : 240;
  std::size_t opened = 0;
  double settled = 0.0;
  for (std::size_t i = 0; i < count; ++i) {
    SCOPED_TRACE("mutant " + std::to_string(i) + " of " + seeds[i % seeds.size()]);
    const std::string path = folder.file(opened % 2 == 0 ? "even.res" : "odd.res");
    std::ofstream(path, std::ios::binary) << broken(contentOf(seeds[i % seeds.size()]), random);
    const bool valid = isValid(path);
    const SurfaceModel& model = appState().glView->surface().measured();
    const HeightGrid* const before = model.raw().get();
    const std::clock_t start = std::clock();
    open(path);
    EXPECT_LT(std::clock() - start, 10 * CLOCKS_PER_SEC) << "of processor time";
    if (valid) {
      shown = path;
      ++opened;
      EXPECT_TRUE(messages.empty()) << messages.front();
    } else {
      EXPECT_EQ(messages, std::vector<std::string>{"Invalid file"});
      EXPECT_EQ(model.raw().get(), before);
    }
    ASSERT_EQ(appState().glView->surface().measurement().path, shown);
    if (i == count / 5) settled = residentPages();
  }
  EXPECT_GT(opened, count / 10);
  EXPECT_LT(opened, count - count / 10);
  EXPECT_LT(residentPages(), 1.1 * settled) << "of memory after a fifth of the files";
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

// One after the other in one column, so that nothing of the file before may stay. Those of version
// 3 come first: without an algorithm code of their own they keep the one before.
TEST(Column, LooksAsItDidForEveryLayout) {
  Fl_Double_Window& window = mainWindow(1280, 800);
  open(MORVANE_SAMPLES "/codes/code_00.res");
  for (const std::string name : {"version_3", "version_3_dull", "09", "code_01", "10", "code_02",
                                 "04", "13", "03", "05", "06", "07", "08", "11", "12"}) {
    const bool offered = name.size() == 2;
    open(MORVANE_SAMPLES "/" +
         (name == "04" ? "panel" : (offered ? "codes/code_" : "codes/") + name) + ".res");
    EXPECT_EQ(appState().detailsButton->visible() != 0, offered) << name;
    if (appState().resultsPanel->visible() == 0) toggleResultsColumn();
    while (Fl::wait(0.1) > 0) continue;
    const Image picture = captured(window, {1060, 25, 220, 775});
    const std::string baseline = MORVANE_BASELINES "/column_" + name + ".png";
    if (std::getenv("MORVANE_PROMOTE") != nullptr) picture.savePng(baseline);
    EXPECT_LE(pixelsUnlike(baseline, picture), 40) << baseline;
  }
}

class Panel : public testing::Test {
 protected:
  Panel() {
    window_.color(FL_WHITE);
    panel_ = new ResultsPanel("no such folder");
    window_.end();
    panel_->show();
  }
  void show(std::uint32_t algorithm, std::string_view part, float value) {
    Measurement measurement;
    measurement.header.headerVersion = 4;
    measurement.header.algorithmType = algorithm;
    std::ranges::copy(part, measurement.header.headerText3.begin());
    measurement.results.gmEcRm.fill(value);
    measurement.results.orangePeel.values.fill(value);
    panel_->take(measurement);
    panel_->showResults();
  }
  /// The display that shows `text`, or starts with it.
  [[nodiscard]] const Fl_Text_Display* find(std::string_view text) const {
    for (int i = 0; i < panel_->children(); ++i) {
      const auto* display = dynamic_cast<const Fl_Text_Display*>(panel_->child(i));
      if (display == nullptr || display->visible() == 0) continue;
      const std::unique_ptr<char, decltype(&std::free)> shown(display->buffer()->text(),
                                                              &std::free);
      if (std::string_view(shown.get()).starts_with(text)) return display;
    }
    return nullptr;
  }

  Fl_Double_Window window_{1280, 800};
  ResultsPanel* panel_ = nullptr;
};

TEST_F(Panel, TextThatIsCutHasATooltip) {
  show(9, "@Door panel, left, third of the second batch", -12345.678F);
  for (const auto& [text, tip] :
       {std::pair{"@Door", "@@Door panel, left, third of the second batch"},
        {"-12345.678mm", "-12345.678mm"}}) {
    ASSERT_NE(find(text), nullptr) << text;
    EXPECT_STREQ(find(text)->tooltip(), tip);
  }
  show(9, "Door", 0.0F);
  EXPECT_EQ(find("Door")->tooltip(), nullptr);
}

TEST_F(Panel, MovesWholeAndDrawsNothingBeyondItsEdges) {
  show(4, "part", 1.0F);
  const auto places = [this] {
    std::vector<Area> all;
    for (int i = 0; i < panel_->children(); ++i) {
      const Fl_Widget& child = *panel_->child(i);
      all.push_back({child.x() - panel_->x(), child.y() - panel_->y(), child.w(), child.h()});
    }
    return all;
  };
  const auto before = places();
  panel_->resize(1000, 25, 220, 300);
  EXPECT_EQ(places(), before);
  show(4, "part", 1.0F);
  EXPECT_EQ(places(), before);

  window_.show();
  window_.wait_for_expose();
  Fl::flush();
  const Image whole = captured(window_, {0, 0, window_.w(), window_.h()});
  const Image inside = whole.part({1000, 25, 220, 300});
  const auto drawn = [](const Rgb& c) { return c != Rgb{255, 255, 255}; };
  EXPECT_EQ(whole.count(drawn), inside.count(drawn));
  EXPECT_GT(inside.count([](const Rgb& c) { return c.r > 100; }), 200) << "the rows inside";
}

}  // namespace
}  // namespace morvane
