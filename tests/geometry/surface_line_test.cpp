// Lines on the surface: where they run and what is drawn of them.
#include <gtest/gtest.h>

#include <cmath>
#include <glm/geometric.hpp>

#include "geometry/camera.h"
#include "geometry/surface_line.h"
#include "tests/support/test_grid.h"

namespace morvane {
namespace {

TEST(SurfaceLine, OfARegionFollowsTheDrawnHeightsOfItsEdge) {
  const auto grid =
      gridFrom(9, 7, [](double column, double row) { return row == 4.0 ? NAN : column + row; });
  const float zScale = 1.0F / heightToModel(1.0F);
  const auto line = regionOutline({*grid, {true, 0.0F, 8.0F}, zScale, 0.0F},
                                  {.column = 2, .row = 1, .width = 6, .height = 5});
  ASSERT_EQ(line.size(), 2U * 5 + 2U * 4 + 1);
  EXPECT_EQ(line.front(), line.back());
  int missing = 0;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const auto column = static_cast<int>(std::lround(line[i].x * 1000.0F));
    const auto row = static_cast<int>(std::lround(line[i].y * 1000.0F));
    EXPECT_TRUE(column == 2 || column == 7 || row == 1 || row == 5) << column << ", " << row;
    EXPECT_EQ(std::isnan(line[i].z), row == 4);
    missing += row == 4 ? 1 : 0;
    EXPECT_TRUE(row == 4 ||
                std::abs(line[i].z - static_cast<float>(std::min(column + row, 8))) < 1e-4F);
    EXPECT_TRUE(i == 0 || glm::distance(glm::vec2(line[i]), glm::vec2(line[i - 1])) < 1.01e-3F)
        << i;
  }
  EXPECT_EQ(missing, 2);
}

TEST(SurfaceLine, ShowsADotWhereLessThanAPixelIsLeftBetweenGaps) {
  std::vector<glm::vec3> line;
  for (int i = 0; i < 1000; ++i)
    line.emplace_back(static_cast<float>(i) / 1000.0F - 0.5F, 0.0F, 0.0F);
  line[500].z = line[502].z = NAN;
  const LinePieces pieces = linePieces(line, glm::mat4(1.0F), 100, 100);
  EXPECT_EQ(pieces.dots, (std::vector{line[501]}));
  // 20 samples make a pixel.
  EXPECT_NEAR(static_cast<double>(pieces.ends.size()), 2.0 * 50, 4.0);
  EXPECT_EQ(pieces.ends.front(), line.front());
  EXPECT_EQ(pieces.ends.back(), line.back());
}

}  // namespace
}  // namespace morvane
