// Pins against the reference rows and at the edges of the grid.
#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "geometry/pin_motion.h"
#include "tests/geometry/golden_rows.h"

namespace morvane {
namespace {

TEST(GoldenPins, FollowEveryRow) {
  for (const GoldenRow& row : goldenRows("view/pins.txt")) {
    const GridSize grid = {row.size(0), row.size(1)};
    if (row.name == "create") {
      const auto [a, b] = profilePins(grid);
      const auto [extents, companion] = pinSize(grid.width);
      expectEnd(row, {a.x, a.y, a.z, b.x, b.y, b.z, extents.x, extents.y, extents.z, companion});
    } else if (row.name == "move") {
      const glm::vec3 moved = movePin({row.at(2), row.at(3), 0.05F}, {row.at(4), row.at(5)}, grid);
      expectEnd(row, {moved.x, moved.y});
      EXPECT_EQ(moved.z, 0.05F);
    } else if (row.name == "line") {
      const PinPair pins = {{row.at(2), row.at(3), 0.0F}, {row.at(4), row.at(5), 0.0F}};
      const auto [a, b] = movePins(pins, {row.at(6), row.at(7)}, grid);
      expectEnd(row, {a.x, a.y, b.x, b.y});
    } else {
      ADD_FAILURE() << row.line;
    }
  }
}

TEST(Pins, StopPastTheLastColumnAndOnTheLastRow) {
  const GridSize grid = {400, 300};
  EXPECT_EQ(movePin({0.1F, 0.1F, 0.05F}, {9.0F, INFINITY}, grid), glm::vec3(0.4F, 0.299F, 0.05F));
  EXPECT_EQ(movePin({0.1F, 0.1F, 0.05F}, {-9.0F, -INFINITY}, grid), glm::vec3(0.0F, 0.0F, 0.05F));
  EXPECT_EQ(gridCorners(grid).b, glm::vec3(0.4F, 0.3F, 0.05F));
}

TEST(Pins, MoveTogetherOnlyWhileBothStayStrictlyInside) {
  const GridSize grid = {400, 300};
  const PinPair pins = {{0.125F, 0.125F, 0.05F}, {0.25F, 0.25F, 0.05F}};
  EXPECT_EQ(movePins(pins, {-0.125F, 0.01F}, grid).b, glm::vec3(0.25F, 0.25F + 0.01F, 0.05F));
  EXPECT_EQ(movePins(pins, {-0.12F, 0.3F}, grid).b, glm::vec3(0.25F - 0.12F, 0.25F, 0.05F));
}

TEST(Pins, FollowASmallerMeasurement) {
  const PinPair pins = clampedToGrid({{0.35F, 0.2F, 0.05F}, {0.1F, 0.05F, 0.05F}}, {200, 100});
  EXPECT_EQ(pins.a, glm::vec3(0.2F, 0.099F, 0.05F));
  EXPECT_EQ(pins.b, glm::vec3(0.1F, 0.05F, 0.05F));
  EXPECT_EQ(clampedToGrid(pins, {0, 0}).a, glm::vec3(0.0F, 0.0F, 0.05F));
}

TEST(Pins, AreNeverMovedToNaN) {
  const GridSize grid = {400, 300};
  EXPECT_EQ(movePin({0.1F, 0.2F, 0.05F}, {NAN, 0.05F}, grid), glm::vec3(0.1F, 0.25F, 0.05F));
  EXPECT_EQ(clampedToGrid(glm::vec3(NAN, 0.1F, 0.05F), grid), glm::vec3(0.0F, 0.1F, 0.05F));
  const PinPair pins = {{0.1F, 0.1F, 0.05F}, {0.2F, 0.2F, 0.05F}};
  EXPECT_EQ(movePins(pins, {0.1F, NAN}, grid).b, glm::vec3(0.2F + 0.1F, 0.2F, 0.05F));
}

TEST(Pins, MarkARegionOfAtLeastTwoByTwoPointsInsideTheGrid) {
  const GridSize grid = {40, 30};
  const auto region = [&](const glm::vec3& a, const glm::vec3& b) {
    const GridRegion r = regionBetween({a, b}, grid);
    return std::array{r.column, r.row, r.width, r.height};
  };
  // A corner at the last point of a row or column includes it, however single precision rounds.
  for (std::size_t points = 2; points < 3000; ++points) {
    const GridSize square = {points, points};
    const GridRegion whole = regionBetween(clampedToGrid(gridCorners(square), square), square);
    ASSERT_EQ(whole.height, points);
    ASSERT_EQ(whole.width, points);
  }
  const auto corners = gridCorners(grid);
  EXPECT_EQ(region(corners.a, corners.b), (std::array<std::size_t, 4>{0, 0, 40, 30}));
  EXPECT_EQ(region({0.0203F, 0.0097F, 0}, {0.0103F, 0.0203F, 0}),
            (std::array<std::size_t, 4>{10, 10, 11, 11}));
  EXPECT_EQ(region({0.04F, 0.029F, 0}, {0.04F, 0.029F, 0}),
            (std::array<std::size_t, 4>{38, 28, 2, 2}));
}

}  // namespace
}  // namespace morvane
