// Heights that are not finite are points the instrument could not see, not data.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>

#include "surface/surface_model.h"
#include "tests/support/test_grid.h"

namespace morvane {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

bool isFinite(float value) { return std::isfinite(value); }

struct Built {
  explicit Built(std::shared_ptr<const HeightGrid> grid) : positions(cellCount(*grid) * 18) {
    model.setRaw(std::move(grid));
    model.measure();
    normals = colours = positions;
    model.build({positions, normals, colours, {}});
  }
  std::ostringstream log;
  SurfaceModel model{log};
  std::vector<float> positions, normals, colours;
};

TEST(MissingPoints, TakeNoPartInNumbers) {
  for (const double missing : {kNaN, kInfinity, -kInfinity, 1e300}) {
    const Built with(gridOf(3, 3, {missing, 1, 2, 3, 4, missing, 6, 7, 8}));
    EXPECT_FLOAT_EQ(with.model.mean(), 31.0F / 7.0F);
    EXPECT_FLOAT_EQ(with.model.variance(), 5.9591837F);
    // They start at the first finite height.
    EXPECT_EQ(with.model.limits().trueMin, 1.0F);
    EXPECT_EQ(with.model.limits().trueMax, 8.0F);
  }
}

TEST(MissingPoints, HaveNoTriangles) {
  const Built whole(roughGrid(8, 9));
  struct Hole {
    std::size_t column, row, triangles;
  };
  for (const auto& [column, row, triangles] :
       {Hole{3, 4, 6}, {0, 0, 2}, {7, 8, 2}, {7, 0, 1}, {0, 8, 1}, {3, 0, 3}, {0, 4, 3}}) {
    const auto grid = roughGrid(8, 9);
    grid->values()[row * 8 + column] = kNaN;
    const Built built(grid);
    std::size_t dropped = 0;
    for (std::size_t triangle = 0; triangle < built.positions.size() / 9; ++triangle) {
      const float* p = built.positions.data() + 9 * triangle;
      const bool sameAsWhole = std::equal(p, p + 9, whole.positions.data() + 9 * triangle);
      const auto meet = [p](int a, int b) { return std::equal(p + a, p + a + 3, p + b); };
      const bool hasNoArea = meet(0, 3) || meet(3, 6) || meet(6, 0);
      EXPECT_TRUE(sameAsWhole || hasNoArea) << triangle;
      dropped += hasNoArea ? 1 : 0;
    }
    EXPECT_EQ(dropped, triangles) << column << ", " << row;
    EXPECT_TRUE(std::ranges::all_of(built.positions, isFinite));
    EXPECT_TRUE(std::ranges::all_of(built.normals, isFinite));
    EXPECT_TRUE(std::ranges::all_of(built.colours, isFinite));
  }
}

/// How often each point of a grid of 9 × 8 is drawn where the surface is drawn as points.
std::vector<int> drawnPoints(const Built& built) {
  std::vector<int> drawn(72);
  for (const auto& [vertex, count, step] : pointRuns(8, 7)) {
    for (std::size_t cell = 0; cell < count * step; cell += step) {
      const float* p = built.positions.data() + 18 * cell + 3 * vertex;
      ++drawn[static_cast<std::size_t>(std::lround(9000.0F * p[1] + 1000.0F * p[0]))];
    }
  }
  return drawn;
}

TEST(MissingPoints, AreNotDrawnWhereTheOthersAreDrawnOnce) {
  const auto grid = roughGrid(9, 8);
  EXPECT_EQ(drawnPoints(Built(grid)), std::vector<int>(72, 1));
  // Apart, side by side, on the rim, and round point 50, which then has no face.
  for (const std::size_t i : {4, 8, 20, 27, 28, 41, 49, 60}) {
    grid->values()[i] = kNaN;
  }
  const std::vector<int> drawn = drawnPoints(Built(grid));
  for (std::size_t i = 0; i < drawn.size(); ++i) {
    EXPECT_EQ(drawn[i] > 0, std::isfinite(grid->values()[i]) && i != 50) << i;
  }
}

TEST(MissingPoints, MayBeAllThereIs) {
  const Built built(gridOf(3, 3, std::vector<double>(9, kNaN)));
  EXPECT_FALSE(built.model.hasHeights());
  EXPECT_EQ(built.model.limits().trueMin, 0.0F);
  EXPECT_EQ(built.model.limits().trueMax, 0.0F);
  EXPECT_EQ(built.model.mean(), 0.0F);
}

TEST(MissingPoints, AreNotMistakenForVeryLargeHeights) {
  auto grid = roughGrid(5, 5);
  for (double& height : grid->values()) height *= 1e37;
  const Built built(grid);
  EXPECT_TRUE(built.model.hasHeights());
  EXPECT_TRUE(std::ranges::all_of(built.normals, isFinite));
}

}  // namespace
}  // namespace morvane
