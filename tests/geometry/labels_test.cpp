// The labels of the axes and of the colour key as they are read on the screen.
#include <gtest/gtest.h>

#include <algorithm>
#include <glm/geometric.hpp>
#include <string>
#include <vector>

#include "geometry/axis_labels.h"
#include "geometry/camera.h"
#include "geometry/corner_texts.h"
#include "geometry/key_column.h"

namespace morvane {
namespace {

constexpr std::size_t kLengthX = 3;
constexpr std::size_t kBottom = 5;
constexpr std::size_t kTop = 6;

/// Glyphs half as wide as high.
float monospaced(std::string_view text, float scale) {
  return 24.0F * scale * static_cast<float>(text.size());
}

/// Corners on the screen in pixels, y down; two for a line.
using Shape = std::vector<glm::vec2>;

/// Whether two convex shapes overlap by more than kTouch (separating axis theorem).
bool meet(const Shape& a, const Shape& b) {
  for (const Shape* shape : {&a, &b}) {
    for (std::size_t i = 0; i < shape->size(); ++i) {
      const glm::vec2 side = (*shape)[(i + 1) % shape->size()] - (*shape)[i];
      const glm::vec2 across = glm::normalize(glm::vec2(side.y, -side.x));
      const auto ends = [&](const Shape& points) {
        std::vector<float> far;
        for (const glm::vec2& point : points) far.push_back(glm::dot(across, point));
        return std::ranges::minmax(far);
      };
      constexpr float kTouch = 0.1F;  // pixels
      if (ends(a).max < ends(b).min + kTouch || ends(b).max < ends(a).min + kTouch) return false;
    }
  }
  return true;
}

class AxisLabels : public testing::Test {
 protected:
  /// Lays out a surface of ±5 µm that stands `relief` model units high, turned by `degrees` about
  /// the screen's x axis.
  void show(int columns, int rows, float relief, float degrees, int width = 1130) {
    ResHeader header;
    header.width = columns;
    header.height = rows;
    header.pixelSizeX = header.pixelSizeY = 0.02;
    const float zScale = relief / 10.0F / kHeightToModel;
    Camera camera;
    camera.rotation = glm::angleAxis(glm::radians(degrees), glm::vec3(1.0F, 0.0F, 0.0F));
    const ViewMatrices matrices =
        viewMatrices(camera, width, viewHeight, header.width, header.height, zScale);
    const glm::mat4 all = matrices.projection * matrices.view * matrices.overlay;
    const AxesRange range{&header, -5.0F, 5.0F, heightToModel(zScale)};
    labels = axisLabels(range, all, width, viewHeight, monospaced, taken, onlyFitting);
    const auto shapeOf = [&](const auto& corners) {
      Shape shape;
      for (const glm::vec3& corner : corners) {
        shape.emplace_back(project(all, width, viewHeight, corner));
      }
      return shape;
    };
    shapes.clear();
    for (const AxisLabel& label : labels) shapes.push_back(shapeOf(cornersOf(label, monospaced)));
    const AxisLines lines = axisLines(range);
    shapes.push_back(shapeOf(std::array{lines.corner, lines.endX}));
    shapes.push_back(shapeOf(std::array{lines.corner, lines.endY}));
  }

  void expectHeightsReadable() const {
    for (const std::size_t height : {kBottom, kTop}) {
      for (std::size_t i = 0; i < shapes.size(); ++i) {
        EXPECT_FALSE(i != height && meet(shapes[height], shapes[i]))
            << labels[height].text << " over text or line " << i;
      }
    }
  }

  int viewHeight = 775;
  bool onlyFitting = false;
  std::vector<ScreenQuad> taken;
  std::array<AxisLabel, 7> labels;
  std::vector<Shape> shapes;  // of the labels, then of the lines along x and y
};

TEST_F(AxisLabels, HeightsOverlapNothingAndReadFromTheTopDown) {
  for (const auto& [columns, rows] : {std::pair{200, 200},
                                      {400, 400},
                                      {1000, 900},
                                      {2000, 2000},
                                      {4000, 4000},
                                      {3000, 1000},
                                      {1000, 3000},
                                      {600, 20}}) {
    for (const float steepness : {0.0F, 0.1F, 0.3F}) {
      const float relief = steepness * static_cast<float>(columns) / 1000.0F;
      for (const float degrees : {0.0F, -15.0F, -35.0F, -60.0F, 15.0F}) {
        for (const int width : {320, 1130}) {
          SCOPED_TRACE(std::to_string(columns) + " x " + std::to_string(rows) + " points, relief " +
                       std::to_string(relief) + ", tilt " + std::to_string(degrees));
          show(columns, rows, relief, degrees, width);
          expectHeightsReadable();
          const bool onTop = shapes[kTop][0].y <= shapes[kBottom][3].y + 0.1F;
          EXPECT_TRUE(onTop || degrees != 0.0F) << "the top height is not above";
        }
      }
    }
  }
}

TEST_F(AxisLabels, HeightsStandAtTheEndsOfAnAxisThatIsSeenFromTheSide) {
  show(1000, 1000, 0.3F, -45.0F);
  EXPECT_EQ(labels[kBottom].place.y, 0.0F);
  EXPECT_EQ(labels[kTop].place.y, 0.0F);
  EXPECT_EQ(labels[kTop].place.x, -0.2F);
}

TEST_F(AxisLabels, LengthsKeepClearOfTheKey) {
  for (const int columns : {2900, 3000, 3100}) {
    const KeyColumn column = keyColumn({standardColours(), -5.0F, 5.0F}, monospaced);
    taken = keyArea(column, monospaced, 48.0F, 1130, 775);
    show(columns, 1000, 0.3F, 0.0F);
    for (const ScreenQuad& room : taken) {
      EXPECT_FALSE(meet(shapes[kLengthX], Shape(room.begin(), room.end()))) << columns;
    }
    EXPECT_EQ(labels[kLengthX].place.x, static_cast<float>(columns) / 1000.0F);
  }
}

TEST_F(AxisLabels, OfSmallPicturesDoNotOverlapOrReachOut) {
  onlyFitting = true;
  std::ptrdiff_t missing = 0;
  for (const int side : {48, 100, 200, 400}) {
    viewHeight = side;
    for (const float degrees : {0.0F, -60.0F}) {
      show(1000, 1000, 0.3F, degrees, side);
      for (std::size_t i = 0; i < labels.size(); ++i) {
        if (labels[i].text.empty()) continue;
        for (const glm::vec2& corner : shapes[i]) {
          EXPECT_EQ(glm::clamp(corner, 0.0F, static_cast<float>(side)), corner) << labels[i].text;
        }
        // The boxes of the heights touch.
        for (std::size_t j = 0; j < i && i != kTop; ++j) {
          EXPECT_TRUE(labels[j].text.empty() || !meet(shapes[i], shapes[j])) << labels[i].text;
        }
      }
    }
    missing = std::ranges::count(labels, "", &AxisLabel::text);
    EXPECT_EQ(missing > 0, side < 400) << side;
  }
}

TEST(CornerTexts, StayApartInLowPicturesAndAreLeftOutIfTooLong) {
  for (const float textHeight : {48.0F, 300.0F}) {  // of a usual view and of one 75 pixels high
    const auto texts = cornerTexts("name", "words", monospaced, textHeight, false);
    const auto area = cornerArea(texts, monospaced, textHeight, 1130, 775);
    EXPECT_FALSE(overlap(area[0], area[1]));
    EXPECT_GE(area[0][2].y, 0.0F) << "the top of the view";
  }
  const std::string longText(200, 'x');
  EXPECT_EQ(cornerTexts(longText, longText, monospaced, 48.0F, false).size(), 2);
  EXPECT_TRUE(cornerTexts(longText, longText, monospaced, 48.0F, true).empty());
}

TEST(KeyColumn, FitsBesideTheKeyHoweverLongAndInEveryWindow) {
  constexpr float kKeyLeft = 565.0F * 1.725F;
  constexpr float kKeyRight = 565.0F * 1.775F;
  for (const float stretch : {1.0F, 1.05F, 1.3F, 2.1F}) {
    // In a narrow view glyphs are wider.
    const auto wide = [&](std::string_view text, float scale) {
      return stretch * monospaced(text, scale);
    };
    for (const float max : {5.0F, 173.45F, 40000.0F, 3e38F}) {
      SCOPED_TRACE(testing::Message() << max << " at " << stretch);
      const KeyColumn shown = keyColumn({standardColours(), -max, max}, wide);
      for (const KeyNumber& number : shown.numbers) {
        const float end = number.x + wide(number.text, shown.scale);
        EXPECT_TRUE((number.x >= 0.0F && end <= kKeyLeft) ||
                    (number.x >= kKeyRight && end <= 1130.0F))
            << number.text << " from " << number.x << " to " << end;
      }
      EXPECT_TRUE(shown.scale >= 0.32F || max > 1e6F);
    }
  }
  EXPECT_EQ(keyColumn({standardColours(), -0.001F, 0.004F}, monospaced).numbers.back().text,
            "  0.00µm");
  EXPECT_FLOAT_EQ(keyColumn({standardColours(), -5.0F, 5.0F}, monospaced).numbers.front().x,
                  1005.7F);
}

TEST(KeyColumn, NumbersStandAtTheBandsAndTheAreaCoversBarAndNumbers) {
  constexpr float kWidth = 800.0F;
  constexpr float kHeight = 600.0F;
  const KeyColumn column = keyColumn({standardColours(), -5.0F, 5.0F}, monospaced);
  const std::vector<ScreenQuad> area = keyArea(column, monospaced, 48.0F, 800, 600);
  ASSERT_EQ(area.size(), 7);
  EXPECT_TRUE(keyFits(area, 800, 600));
  EXPECT_FALSE(keyFits(keyArea(column, monospaced, 400.0F, 80, 60), 80, 60));
  const auto expectBox = [](const ScreenQuad& box, float left, float bottom, float right,
                            float top) {
    const ScreenQuad wanted = {{{left, bottom}, {right, bottom}, {right, top}, {left, top}}};
    for (std::size_t i = 0; i < wanted.size(); ++i) {
      EXPECT_LT(glm::distance(box[i], wanted[i]), 1.0F) << "corner " << i;
    }
  };
  expectBox(area[0], 0.8625F * kWidth, 0.85F * kHeight, 0.8875F * kWidth, 0.15F * kHeight);
  for (std::size_t i = 0; i < column.numbers.size(); ++i) {
    const float start = column.numbers[i].x * kWidth / kTextSpaceWidth;
    const float baseline = (0.15F + 0.14F * static_cast<float>(i)) * kHeight;
    const float em = 48.0F * column.scale * kHeight / kTextSpaceHeight;
    const float length =
        monospaced(column.numbers[i].text, column.scale) * kWidth / kTextSpaceWidth;
    expectBox(area[i + 1], start, baseline + 0.25F * em, start + length, baseline - 0.75F * em);
  }
}

}  // namespace
}  // namespace morvane
