// The mesh against the plainest way to compute it, on grids of every awkward size.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstring>
#include <sstream>

#include "surface/mesh.h"
#include "surface/surface_model.h"
#include "tests/support/test_grid.h"

namespace morvane {
namespace {

using Vector = std::array<double, 3>;

Vector operator-(const Vector& a, const Vector& b) {
  return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}
Vector operator+(const Vector& a, const Vector& b) {
  return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}
Vector cross(const Vector& a, const Vector& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
Vector normalised(const Vector& v) {
  const double length = std::hypot(v[0], v[1], v[2]);
  return {v[0] / length, v[1] / length, v[2] / length};
}

struct Mesh {
  explicit Mesh(const HeightGrid& grid, const MeshLook& look = {})
      : positions(cellCount(grid) * 18, -1.0F),
        normals(positions),
        colours(positions),
        faces(cellCount(grid) * 6, -1.0F) {
    buildMesh(grid, look, {positions, normals, colours, faces});
  }
  std::vector<float> positions, normals, colours, faces;
};

constexpr std::size_t kColumnOf[] = {0, 1, 0, 0, 1, 1};
constexpr std::size_t kRowOf[] = {0, 1, 1, 0, 0, 1};

Vector pointOf(const HeightGrid& grid, std::size_t c, std::size_t r) {
  return {static_cast<float>(c) / 1000.0F, static_cast<float>(r) / 1000.0F,
          static_cast<float>(grid.row(r)[c])};
}

/// The sum of the normals of all triangles that hold a point, found by looking at every triangle.
Vector naiveNormal(const HeightGrid& grid, std::size_t column, std::size_t row) {
  Vector sum{};
  for (std::size_t r = 0; r + 1 < grid.height(); ++r) {
    for (std::size_t c = 0; c + 1 < grid.width(); ++c) {
      for (const std::size_t first : {0U, 3U}) {
        bool holds = false;
        std::array<Vector, 3> corner;
        for (std::size_t i = 0; i < 3; ++i) {
          const std::size_t cc = c + kColumnOf[first + i];
          const std::size_t rr = r + kRowOf[first + i];
          corner[i] = pointOf(grid, cc, rr);
          holds = holds || (cc == column && rr == row);
        }
        if (holds) sum = sum + normalised(cross(corner[1] - corner[0], corner[2] - corner[0]));
      }
    }
  }
  return normalised(sum);
}

TEST(Mesh, MatchesTheNaiveWayOnEverySize) {
  for (const auto& [width, height] :
       {std::pair{2, 2}, {2, 9}, {9, 2}, {5, 6}, {4, 7}, {3, 8}, {6, 13}, {5, 14}, {7, 15}}) {
    const auto grid = roughGrid(static_cast<std::size_t>(width), static_cast<std::size_t>(height));
    const Mesh mesh(*grid);
    for (std::size_t i = 0; i < cellCount(*grid) * 6; ++i) {
      const std::size_t cell = i / 6;
      const std::size_t c = cell % (grid->width() - 1) + kColumnOf[i % 6];
      const std::size_t r = cell / (grid->width() - 1) + kRowOf[i % 6];
      const Vector point = pointOf(*grid, c, r);
      const Vector normal = naiveNormal(*grid, c, r);
      for (std::size_t k = 0; k < 3; ++k) {
        ASSERT_EQ(mesh.positions[3 * i + k], static_cast<float>(point[k]))
            << width << 'x' << height;
        ASSERT_NEAR(mesh.normals[3 * i + k], normal[k], 2e-4) << width << 'x' << height << ' ' << i;
        ASSERT_EQ(mesh.colours[3 * i + k], 0.5F);
      }
    }
  }
}

TEST(Mesh, GridsWithoutCellsAreLeftAlone) {
  for (const auto& [width, height] : {std::pair{0, 0}, {1, 1}, {1, 5}, {5, 1}, {0, 4}}) {
    const auto grid = roughGrid(static_cast<std::size_t>(width), static_cast<std::size_t>(height));
    EXPECT_EQ(cellCount(*grid), 0U);
    const Mesh mesh(*grid);
    EXPECT_TRUE(mesh.positions.empty());
    const SurfaceLimits limits = findLimits(*grid, {});
    const float first = grid->count() > 0 ? static_cast<float>(grid->values()[0]) : 0.0F;
    EXPECT_EQ(limits.trueMin, first);
    EXPECT_EQ(limits.trueMax, first);
  }
}

TEST(Mesh, TwoBuildsAreBitEqual) {
  const auto grid = roughGrid(61, 47);
  const HeatMapScale scale(-4.0F, 4.0F);
  const Mesh first(*grid, {{}, &scale});
  const Mesh second(*grid, {{}, &scale});
  const auto same = [](const std::vector<float>& a, const std::vector<float>& b) {
    return std::memcmp(a.data(), b.data(), a.size() * sizeof(float)) == 0;
  };
  EXPECT_TRUE(same(first.positions, second.positions));
  EXPECT_TRUE(same(first.normals, second.normals));
  EXPECT_TRUE(same(first.colours, second.colours));
  EXPECT_TRUE(same(first.faces, second.faces));
}

TEST(Limits, IgnoreRowAndColumnZeroBeyondTheFirstHeight) {
  auto grid = gridOf(3, 3, {5, 99, 1, -99, 4, 6, 2, 3, 5});
  EXPECT_EQ(findLimits(*grid, {}).trueMax, 6.0F);
  EXPECT_EQ(findLimits(*grid, {}).trueMin, 3.0F);
  // The last row and column count.
  grid->values()[8] = 50.0;
  EXPECT_EQ(findLimits(*grid, {}).trueMax, 50.0F);
}

TEST(Scale, ColoursItsEndsAndNothingBeyond) {
  const HeatMapScale scale(-1.5F, 3.7F);
  EXPECT_EQ(scale.colourOf(-1.5F), kHeatStops.front());
  EXPECT_EQ(scale.colourOf(3.7F), kHeatStops.back());
  EXPECT_EQ(scale.colourOf(-1.6F), kUncoloured);
  EXPECT_EQ(scale.colourOf(9.9F), kUncoloured);
  for (const HeatMapScale& empty : {HeatMapScale(2.0F, 2.0F), HeatMapScale(0.0F, NAN)}) {
    EXPECT_EQ(empty.colourOf(2.0F), kUncoloured);
  }
  const HeatMapScale reversed(3.0F, -3.0F);
  EXPECT_EQ(reversed.colourOf(3.0F), kHeatStops.front());
  EXPECT_EQ(reversed.colourOf(-3.0F), kHeatStops.back());
}

TEST(Model, KeepsTheFilteredGridOnlyWhileItFits) {
  std::ostringstream log;
  SurfaceModel model(log);
  EXPECT_EQ(log.str(), "Hello Vertices\n");
  model.setRaw(roughGrid(4, 4));
  model.setFiltered(roughGrid(3, 4));
  model.useFiltered = true;
  EXPECT_EQ(model.shown(), model.raw());
  model.setFiltered(roughGrid(4, 4));
  EXPECT_NE(model.shown(), model.raw());
  model.setRaw(roughGrid(4, 4));
  EXPECT_EQ(model.shown(), model.raw());
}

}  // namespace
}  // namespace morvane
