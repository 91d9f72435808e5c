// The mesh against the plainest way to compute it, on grids of every awkward size.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <glm/geometric.hpp>
#include <glm/vec3.hpp>
#include <new>
#include <sstream>
#include <string>

#include "surface/mesh.h"
#include "surface/row_bands.h"
#include "surface/statistics.h"
#include "surface/surface_model.h"
#include "tests/support/test_grid.h"

namespace morvane {
namespace {

using Vector = glm::dvec3;

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

using Triangle = std::array<Vector, 3>;

/// The triangle of cell (c, r) that begins with its vertex `first`, 0 or 3.
Triangle triangleOf(const HeightGrid& grid, std::size_t c, std::size_t r, std::size_t first) {
  Triangle corners;
  for (std::size_t i = 0; i < 3; ++i) {
    corners[i] = pointOf(grid, c + kColumnOf[first + i], r + kRowOf[first + i]);
  }
  return corners;
}

bool isWhole(const Triangle& t) {
  return std::isfinite(t[0][2]) && std::isfinite(t[1][2]) && std::isfinite(t[2][2]);
}

Vector normalOf(const Triangle& t) { return glm::normalize(glm::cross(t[1] - t[0], t[2] - t[0])); }

/// The sum of the normals of all triangles that hold a point, found by looking at every triangle.
Vector naiveNormal(const HeightGrid& grid, const Vector& point) {
  Vector sum(0.0);
  for (std::size_t r = 0; r + 1 < grid.height(); ++r) {
    for (std::size_t c = 0; c + 1 < grid.width(); ++c) {
      for (const std::size_t first : {0U, 3U}) {
        const Triangle triangle = triangleOf(grid, c, r, first);
        const bool holds = std::find(triangle.begin(), triangle.end(), point) != triangle.end();
        if (holds && isWhole(triangle)) sum += normalOf(triangle);
      }
    }
  }
  return glm::normalize(sum);
}

void expectNear(const float* found, const Vector& expected, double tolerance) {
  for (int k = 0; k < 3; ++k) ASSERT_NEAR(found[k], expected[k], tolerance) << k;
}

/// Compares every triangle without a missing corner, vertex by vertex.
void expectNaiveMesh(const HeightGrid& grid) {
  SCOPED_TRACE(std::to_string(grid.width()) + " x " + std::to_string(grid.height()));
  const Mesh mesh(grid);
  for (std::size_t t = 0; t < cellCount(grid) * 2; ++t) {
    const std::size_t cell = t / 2;
    const Triangle triangle =
        triangleOf(grid, cell % (grid.width() - 1), cell / (grid.width() - 1), t % 2 == 0 ? 0 : 3);
    if (!isWhole(triangle)) continue;
    expectNear(&mesh.faces[3 * t], normalOf(triangle), 2e-4);
    for (std::size_t i = 0; i < 3; ++i) {
      expectNear(&mesh.positions[9 * t + 3 * i], triangle[i], 0.0);
      expectNear(&mesh.normals[9 * t + 3 * i], naiveNormal(grid, triangle[i]), 2e-4);
      expectNear(&mesh.colours[9 * t + 3 * i], {0.5, 0.5, 0.5}, 0.0);
    }
  }
}

TEST(Mesh, MatchesTheNaiveWayOnEverySize) {
  for (const auto& [width, height] : {std::pair{2U, 2U},
                                      {2U, 9U},
                                      {9U, 2U},
                                      {5U, 6U},
                                      {4U, 7U},
                                      {3U, 8U},
                                      {6U, 13U},
                                      {5U, 14U}}) {
    expectNaiveMesh(*roughGrid(width, height));
  }
}

TEST(Mesh, NormalsBesideMissingPointsSumTheFacesThatExist) {
  const auto grid = roughGrid(9, 15);
  for (const std::size_t i : {0U, 4U, 30U, 31U, 76U, 89U, 134U}) grid->values()[i] = NAN;
  expectNaiveMesh(*grid);
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

TEST(Mesh, AWorkerThatFailsIsToldWhenAllHaveEnded) {
  std::atomic<std::size_t> rows = 0;
  const auto work = [&rows](std::size_t band, std::size_t first, std::size_t end) {
    if (band == 3) throw std::bad_alloc();
    rows += end - first;
  };
  EXPECT_THROW(forEachRowBand(23, work), std::bad_alloc);
  EXPECT_EQ(rows, 22U - 23U / kWorkers) << "all but those of the band that failed";
}

TEST(Scale, ColoursItsEndsAndNothingBeyond) {
  const HeatMapScale scale(-1.5F, 3.7F);
  EXPECT_EQ(scale.colourOf(-1.5F), kHeatStops.front());
  EXPECT_EQ(scale.colourOf(3.7F), kHeatStops.back());
  EXPECT_EQ(scale.colourOf(-1.6F), kUncoloured);
  EXPECT_EQ(scale.colourOf(9.9F), kUncoloured);
  EXPECT_EQ(HeatMapScale(2.0F, 2.0F).colourOf(2.0F), kUncoloured);
  const HeatMapScale reversed(3.0F, -3.0F);
  EXPECT_EQ(reversed.colourOf(3.0F), kHeatStops.front());
  EXPECT_EQ(reversed.colourOf(-3.0F), kHeatStops.back());
  // Reversed limits that colour what lies beyond keep their ends where they are.
  const HeatMapScale ends(3.0F, -3.0F, Beyond::kNearerEnd);
  EXPECT_EQ(ends.colourOf(9.0F), kHeatStops.front());
  EXPECT_EQ(ends.colourOf(-9.0F), kHeatStops.back());
  EXPECT_EQ(ends.colourOf(NAN), kUncoloured);
}

TEST(Scale, IsNeverNoise) {
  constexpr float kHuge = 3e38F;  // twice that is no float any more
  for (const auto& [lower, upper] : {std::pair{-kHuge, kHuge},
                                     {0.0F, INFINITY},
                                     {NAN, 1.0F},
                                     {0.0F, 5e-39F},
                                     {0.0F, 1e-45F},
                                     {1e6F, 1e6F + 0.125F}}) {
    for (const float part : {0.0F, 0.2F, 0.5F, 0.9F, 1.0F}) {
      const float height = lower * (1.0F - part) + upper * part;
      for (const float channel : HeatMapScale(lower, upper).colourOf(height)) {
        EXPECT_TRUE(channel >= 0.0F && channel <= 1.0F)
            << channel << " at " << height << " in " << lower << " to " << upper;
      }
    }
  }
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

TEST(Model, MeasuresEachGridAnew) {
  std::ostringstream log;
  SurfaceModel model(log);
  model.setRaw(gridOf(2, 2, {7, 7, 7, 9}));
  model.measure();
  model.setRaw(gridOf(3, 2, {1, 5, 1, 5, 1, 5}));
  model.measure();
  EXPECT_EQ(model.mean(), 3.0F);
  EXPECT_EQ(model.sd(), 2.0F);
  EXPECT_EQ(model.autoScale(), automaticScale(2.0F, 3));
}

TEST(Model, ColoursByTheGlobalLimitsAndClampsToTheTypedOnes) {
  std::ostringstream log;
  SurfaceModel model(log);
  model.setRaw(gridOf(2, 2, {-50, -2, 2, 50}));
  model.crop = {true, -20.0F, 20.0F};
  model.globalScale = HeatMapScale(-5.0F, 5.0F, Beyond::kNearerEnd);
  model.measure();
  std::vector<float> positions(18), normals(18), colours(18);
  model.build({positions, normals, colours, {}});
  EXPECT_EQ(positions[2], -20.0F);
  EXPECT_EQ(positions[5], 20.0F);
  EXPECT_TRUE(std::equal(kHeatStops.front().begin(), kHeatStops.front().end(), colours.begin()));
  EXPECT_TRUE(std::equal(kHeatStops.back().begin(), kHeatStops.back().end(), colours.begin() + 3));
  EXPECT_EQ(model.colourScale().upper(), 5.0F) << "what the key shows";
}

TEST(AutomaticScale, StepsFinerOnSmoothSurfaces) {
  const auto expected = [](double step, float sd) {
    return static_cast<float>(step * 400.0 / sd / 1000.0 / 0.000027);
  };
  EXPECT_FLOAT_EQ(automaticScale(0.19F, 400), expected(0.01, 0.19F));
  EXPECT_FLOAT_EQ(automaticScale(0.21F, 400), expected(0.05, 0.21F));
}

}  // namespace
}  // namespace morvane
