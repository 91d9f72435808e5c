// The results column as the toolkit shows it. Needs a display.
#include <gtest/gtest.h>
// The toolkit's headers bring macros that the test library's do not survive.
#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Text_Display.H>
#include <FL/fl_draw.H>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ui/results_panel.h"

namespace morvane {
namespace {

Measurement measurementOf(std::uint32_t algorithmType, std::string_view part, float value) {
  Measurement measurement;
  measurement.header.headerVersion = 4;
  measurement.header.algorithmType = algorithmType;
  std::ranges::copy(part, measurement.header.headerText3.begin());
  measurement.results.gmEcRm.fill(value);
  measurement.results.orangePeel.values.fill(value);
  return measurement;
}

class PanelTest : public testing::Test {
 protected:
  PanelTest() : window_(1280, 800) {
    window_.color(FL_WHITE);
    panel_ = new ResultsPanel("no such folder");
    window_.end();
    panel_->show();
  }

  void open(const Measurement& measurement) {
    panel_->take(measurement);
    panel_->showResults();
  }

  [[nodiscard]] std::vector<const Fl_Text_Display*> shown() const {
    std::vector<const Fl_Text_Display*> displays;
    for (int i = 0; i < panel_->children(); ++i) {
      const auto* display = dynamic_cast<const Fl_Text_Display*>(panel_->child(i));
      if (display != nullptr && display->visible() != 0) displays.push_back(display);
    }
    return displays;
  }

  /// The first display whose text begins with `start`.
  [[nodiscard]] const Fl_Text_Display* find(std::string_view start) const {
    for (const auto* display : shown()) {
      if (textOf(display).starts_with(start)) return display;
    }
    return nullptr;
  }

  static std::string textOf(const Fl_Text_Display* display) {
    const std::unique_ptr<char, decltype(&std::free)> text(display->buffer()->text(), &std::free);
    return text.get();
  }

  Fl_Double_Window window_;
  ResultsPanel* panel_ = nullptr;
};

TEST_F(PanelTest, UnknownAlgorithmHidesTheRowsOfTheFileBefore) {
  open(measurementOf(9, "first", 1.0F));
  EXPECT_NE(find("Band B"), nullptr);
  EXPECT_NE(find("1.000mm"), nullptr);
  open(measurementOf(16, "second", 1.0F));
  // Title, header labels and values, and the two separators that always stand.
  EXPECT_EQ(shown().size(), 1 + 2 * kHeaderRows + kHeaderSeparators.size());
  EXPECT_NE(find("second"), nullptr);
  EXPECT_EQ(find("first"), nullptr);
}

TEST_F(PanelTest, TextThatIsCutHasATooltipAndNeverScrollBars) {
  open(measurementOf(9, "@Door panel, left, third of the second batch", -12345.678F));
  const auto* part = find("@Door");
  ASSERT_NE(part, nullptr);
  ASSERT_NE(part->tooltip(), nullptr);
  EXPECT_STREQ(part->tooltip(), "@@Door panel, left, third of the second batch");
  const auto* value = find("-12345.678mm");
  ASSERT_NE(value, nullptr);
  EXPECT_STREQ(value->tooltip(), "-12345.678mm");
  for (const auto* display : shown()) {
    for (int i = 0; i < display->children(); ++i) {
      EXPECT_EQ(display->child(i)->visible(), 0) << textOf(display);
    }
  }
  open(measurementOf(9, "Door", 0.0F));
  ASSERT_NE(find("Door"), nullptr);
  EXPECT_EQ(find("Door")->tooltip(), nullptr);
}

TEST_F(PanelTest, RowsMoveWithTheColumnAndKeepTheirSize) {
  open(measurementOf(4, "part", 1.0F));
  const auto places = [this] {
    std::vector<std::vector<int>> all;
    for (const auto* display : shown()) {
      all.push_back(
          {display->x() - panel_->x(), display->y() - panel_->y(), display->w(), display->h()});
    }
    return all;
  };
  const auto before = places();
  panel_->resize(700, 60, 220, 300);
  EXPECT_EQ(places(), before);
  open(measurementOf(4, "part", 1.0F));
  EXPECT_EQ(places(), before);
}

TEST_F(PanelTest, NothingIsDrawnBeyondTheColumn) {
  open(measurementOf(4, "part", 1.0F));
  panel_->resize(1000, 25, 220, 300);
  window_.show();
  window_.wait_for_expose();
  Fl::flush();
  window_.make_current();
  const std::unique_ptr<uchar[]> pixels(fl_read_image(nullptr, 0, 0, window_.w(), window_.h()));
  ASSERT_NE(pixels, nullptr);
  int strayPixels = 0;
  int litPixels = 0;
  for (int y = 0; y < window_.h(); ++y) {
    for (int x = 0; x < window_.w(); ++x) {
      const uchar* pixel = &pixels[static_cast<std::size_t>(y * window_.w() + x) * 3];
      const bool white = pixel[0] == 255 && pixel[1] == 255 && pixel[2] == 255;
      const bool inside = x >= 1000 && x < 1220 && y >= 25 && y < 325;
      if (inside && pixel[0] > 100) ++litPixels;
      if (!inside && !white) ++strayPixels;
    }
  }
  EXPECT_EQ(strayPixels, 0);
  EXPECT_GT(litPixels, 200) << "the rows inside are missing";
}

}  // namespace
}  // namespace morvane
