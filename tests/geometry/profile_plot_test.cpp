// The profile's plot as an operator reads it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "geometry/profile_plot.h"
#include "tests/support/test_grid.h"

namespace morvane {
namespace {

// Every glyph half as wide as it is high, about what the font has.
float monospaced(std::string_view text, float scale) {
  return 24.0F * scale * static_cast<float>(text.size());
}

ProfileSection sectionOf(const std::vector<float>& heights) {
  ProfileSection section;
  section.localMin = section.sampleMin = INFINITY;
  section.localMax = section.sampleMax = -INFINITY;
  for (std::size_t i = 0; i < heights.size(); ++i) {
    section.samples.emplace_back(static_cast<float>(i) / 1000.0F, heights[i], 0.0F);
    if (std::isnan(heights[i])) continue;
    ++section.drawn;
    section.localMin = section.sampleMin = std::min(section.localMin, heights[i]);
    section.localMax = section.sampleMax = std::max(section.localMax, heights[i]);
  }
  if (section.drawn == 0) section.localMin = section.localMax = 0.0F;
  return section;
}

ProfilePlot plotted(const ProfileSection& section, int width = 1130, const Crop& crop = {}) {
  return layOutProfile({section, crop, 0.02F, 8.0F, -10.0F}, width, 250, monospaced);
}

bool hasText(const ProfilePlot& plot, const std::string& text) {
  return std::any_of(plot.texts.begin(), plot.texts.end(),
                     [&](const PlotText& t) { return t.text == text; });
}

std::vector<float> wave(std::size_t count, float amplitude, float offset) {
  std::vector<float> heights;
  for (std::size_t i = 0; i < count; ++i) {
    heights.push_back(offset + amplitude * std::sin(static_cast<float>(i) * 0.05F));
  }
  return heights;
}

// No two texts overlap, none leaves the window, and the curve stays between the axes.
void expectReadable(const ProfilePlot& plot, int width) {
  struct Box {
    float left, right, bottom, top;
  };
  std::vector<Box> boxes;
  for (const PlotText& text : plot.texts) {
    const float wide = monospaced(text.text, text.scale);
    boxes.push_back(
        {text.place.x, text.place.x + wide, text.place.y, text.place.y + 36.0F * text.scale});
    EXPECT_GE(boxes.back().left, -0.01F) << text.text << " at width " << width;
    EXPECT_LE(boxes.back().right, static_cast<float>(width) + 0.01F)
        << text.text << " at width " << width;
  }
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      const bool apart = boxes[i].left >= boxes[j].right || boxes[j].left >= boxes[i].right ||
                         boxes[i].bottom >= boxes[j].top || boxes[j].bottom >= boxes[i].top;
      EXPECT_TRUE(apart) << plot.texts[i].text << " over " << plot.texts[j].text << " at width "
                         << width;
    }
  }
  for (const auto* lines : {&plot.curve, &plot.clipped, &plot.levels}) {
    for (const glm::vec2& point : *lines) {
      EXPECT_GE(point.x, plot::kLeft);
      EXPECT_LE(point.x, plot::kLeft + plot::kLength + 1e-5F);
      EXPECT_LE(std::abs(point.y - plot::kMiddle), plot::kHalfCurve + 1e-5F);
    }
  }
}

TEST(ProfilePlot, IsReadableAtAnyWidthAndHeight) {
  for (const auto& [amplitude, offset] : {std::pair{3.0F, 0.0F},
                                          {0.0F, 0.0F},
                                          {0.0F, -7.5F},
                                          {1e-4F, 100.0F},
                                          {5000.0F, 2e4F},
                                          {1e30F, 0.0F},
                                          {1e-30F, 0.0F},
                                          {3e38F, 0.0F}}) {
    for (const std::size_t count : {1U, 2U, 300U, 1400U}) {
      const ProfileSection section = sectionOf(wave(count, amplitude, offset));
      for (const int width : {320, 700, 1130, 2410}) expectReadable(plotted(section, width), width);
    }
  }
}

TEST(ProfilePlot, PutsHeightsAndDistancesWhereTheirNumbersSay) {
  std::vector<float> ramp;
  for (int i = 0; i <= 100; ++i) ramp.push_back(static_cast<float>(i) * 0.1F - 2.0F);
  const ProfilePlot plot = plotted(sectionOf(ramp));
  const auto number = std::find_if(plot.texts.begin(), plot.texts.end(),
                                   [](const PlotText& t) { return t.text == "6"; });
  ASSERT_NE(number, plot.texts.end());
  // Sample 80 has height 6; the number's middle is as high as the curve is there.
  const float pixelY = (plot.curve[std::size_t{2} * 80 - 1].y + 1.0F) * 125.0F;
  EXPECT_NEAR(number->place.y + 4.0F, pixelY, 1.0F);
  EXPECT_TRUE(hasText(plot, "Distance: 2.020mm"));
  EXPECT_TRUE(hasText(plot, "Local min | max:  -2.00 | 8.00µm"));
  EXPECT_TRUE(hasText(plot, "1.010"));  // the middle tick
  EXPECT_NEAR(plot.curve[0].x, plot::kLeft, 1e-6);
  EXPECT_NEAR(plot.curve[std::size_t{2} * 50 - 1].x, plot::kLeft + plot::kLength * 50 / 101, 1e-5);
}

TEST(ProfilePlot, LeavesGapsAndMarksWhatIsClipped) {
  const ProfileSection gaps = sectionOf({1, 2, NAN, NAN, 5, NAN, 4, 3});
  // Two connected pieces and the single sample between gaps.
  EXPECT_EQ(plotted(gaps).curve.size(), 6U);
  const ProfilePlot clipped = plotted(sectionOf({0, 1, 2, 2, 2, 1, -1, -1}), 1130, {true, -1, 2});
  EXPECT_EQ(clipped.clipped.size(), 6U);
  EXPECT_EQ(clipped.curve.size(), 8U);
  const ProfilePlot empty = plotted(ProfileSection{});
  EXPECT_TRUE(empty.curve.empty());
  EXPECT_EQ(empty.texts.size(), 2U);
  EXPECT_TRUE(plotted(sectionOf({NAN, NAN})).curve.empty());
}

}  // namespace
}  // namespace morvane
