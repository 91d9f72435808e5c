// Random use of the program for a while: whatever an operator may do, in any order.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <random>

#include "tests/gui/program.h"
#include "tests/support/golden.h"

namespace morvane::gui {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

/// A number from the environment, or `usual`.
unsigned long setting(const char* name, unsigned long usual) {
  const char* text = std::getenv(name);
  return text != nullptr ? std::strtoul(text, nullptr, 10) : usual;
}

class Soak : public testing::Test {
 public:
  Soak() {
    // One folder for all files, also those that are saved. Its path is short, since it is typed.
    for (const char* name : {"panel", "flat", "int16_v2", "v3_reflective", "small_odd_rows"}) {
      fs::copy_file(golden::measurement(name), path(name));
    }
    fs::copy_file(golden::file("panel/surface_image_f.bmp"), folder_.file("surface_image_f.bmp"));
    brokenFile(folder_);
    std::cerr << "seed " << seed_ << '\n';
  }
  std::string path(const std::string& name) const { return folder_.file(name + ".res"); }
  int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random_); }
  Point in(const Area& area) { return {area.x + upTo(area.w - 1), area.y + upTo(area.h - 1)}; }
  template <class Values>
  auto oneOf(const Values& values) {
    return values[static_cast<std::size_t>(upTo(static_cast<int>(std::size(values)) - 1))];
  }
  // NOLINTNEXTLINE(readability-make-member-function-const): what is done to it changes the program
  Window window() { return program_.mainWindow(); }

  void pressControl() {
    window().click(in(inWindow({0, 0, kControlsWidth, control::kDetails.y + control::kDetails.h})));
  }
  void typeLimit() {
    program_.press(oneOf(std::array{control::kMaximum, control::kMinimum}));
    window().key({"ctrl+a"});
    window().type(oneOf(std::array{"5", "-3", "1e99", "abc", "0", "2.5"}));
    window().key({"Return"});
  }
  /// A point of the view, whatever the window's size is now.
  Point inView() {
    const Area whole = window().area();
    return in(windowLayout(whole.w, whole.h, false, false).view);
  }
  void drag() {
    const std::array<std::vector<int>, 4> buttons = {{{1}, {2}, {3}, {1, 3}}};
    window().drag(inView(), inView(), oneOf(buttons));
  }
  void turnWheel() { window().wheel(inView(), oneOf(std::array{-9, -1, 1, 9})); }
  void chooseTool() {
    program_.choose(std::string("Tools/") +
                    oneOf(std::array{"Filter", "Filter Settings", "Surface as Points", "Lighting",
                                     "Heat Map Key", "Whole Profile Line", "Grid Box",
                                     "Save region...", "Screenshot", "Results Column", "Console"}));
  }
  void setFilter() {
    for (const Window& filter : program_.windows()) {
      if (filter.title() != "Filter Window") continue;
      using namespace filter_place;
      filter.click(middleOf(oneOf(std::array{kHighPass, kLowPass, kBandPass})));
      filter.click(middleOf(oneOf(std::array{kL1, kL2})));
      filter.key({"ctrl+a"});
      filter.type(oneOf(std::array{"0.8", "2", "0.05", "1e30", "-1", "0"}));
      filter.click(middleOf(oneOf(std::array{kApply, kApply, kApply, kCancel})));
    }
  }
  void open() {
    program_.open(path(oneOf(
        std::array{"panel", "flat", "int16_v2", "v3_reflective", "small_odd_rows", "broken"})));
  }
  void saveCopy() {
    window().key({"ctrl+s"});
    program_.answerChooser(folder_.file("copy"), "Save Copy as");
  }
  void report() {
    program_.press(control::kReport);
    program_.answerChooser(folder_.file("report"), "Save report");
  }
  void resize() { window().resize(700 + upTo(880), 720 + upTo(200)); }

  /// Closes all dialogs.
  void tidyUp() {
    for (int i = 0; i < 6; ++i) {
      bool left = false;
      for (const Window& other : program_.windows()) {
        const std::string title = other.title();
        if (title == "Morvane Reader Software" || title == "Filter Window") continue;
        left = true;
        try {
          // The window that asks whether to quit is only closed.
          const bool quits = title == "Quit application?";
          quits ? other.close() : other.key({oneOf(std::array{"Escape", "Return"})});
        } catch (const GuiError&) {  // it has just closed by itself
        }
      }
      if (!left) return;
    }
  }

  /// The memory held with the first measurement open, whatever was open before.
  long level() {
    for (int attempt = 1;; ++attempt) {
      try {
        window().resize(kWindowWidth, kWindowHeight);
        tidyUp();
        program_.open(path("panel"));
        program_.awaitLine("fileSize: ");
        program_.awaitLine(kFrameDrawn);
        return program_.residentKilobytes();
      } catch (const GuiError&) {  // an open menu takes the key
        if (attempt == 3 || !program_.running()) throw;
      }
    }
  }

  TemporaryFolder folder_;
  unsigned long seed_ = setting("MORVANE_SOAK_SEED", std::random_device{}());
  std::mt19937 random_{static_cast<std::mt19937::result_type>(seed_)};
  Program program_{{path("panel")}, Start{.environment = {"MORVANE_MENU=full"}}};
};

TEST_F(Soak, EndsAsItBegan) {
  struct Action {
    const char* name;
    int weight;
    void (Soak::*run)();
  };
  constexpr Action kActions[] = {{"press", 6, &Soak::pressControl}, {"limit", 2, &Soak::typeLimit},
                                 {"drag", 5, &Soak::drag},          {"wheel", 2, &Soak::turnWheel},
                                 {"tool", 4, &Soak::chooseTool},    {"filter", 3, &Soak::setFilter},
                                 {"open", 3, &Soak::open},          {"copy", 1, &Soak::saveCopy},
                                 {"report", 1, &Soak::report},      {"resize", 1, &Soak::resize}};
  std::vector<const Action*> lots;
  for (const Action& action : kActions) {
    lots.insert(lots.end(), static_cast<std::size_t>(action.weight), &action);
  }
  program_.awaitLine(kFrameDrawn);
  const auto length = std::chrono::seconds(setting("MORVANE_SOAK_SECONDS", 60));
  const auto start = Clock::now();
  constexpr std::size_t kLevels = 6;
  std::vector<long> levels;
  int steps = 0;
  int missed = 0;
  for (; Clock::now() - start < length; ++steps) {
    const Action& action = *oneOf(lots);
    try {
      (this->*action.run)();
      tidyUp();
    } catch (const GuiError& error) {
      // A random action may find that its window has just been closed.
      std::cerr << action.name << ", step " << steps << ": " << error.what() << '\n';
      ++missed;
    }
    ASSERT_TRUE(program_.running()) << "ended in " << action.name << ", step " << steps;
    if (Clock::now() - start > length * (levels.size() + 1) / kLevels) levels.push_back(level());
  }
  // Some may be missing if the time was spent waiting for a window that did not come.
  while (levels.size() < kLevels) levels.push_back(level());
  std::cerr << steps << " steps, " << missed << " missed, memory in kB";
  for (const long held : levels) std::cerr << ' ' << held;
  std::cerr << '\n';
  EXPECT_LT(missed, 3 + steps / 20);
  // Switched-on features take a fixed amount of memory; a leak grows.
  EXPECT_LT(levels.back(), *std::max_element(levels.begin(), levels.begin() + 3) * 5 / 4);
  EXPECT_EQ(program_.quit(), 0);
}

}  // namespace
}  // namespace morvane::gui
