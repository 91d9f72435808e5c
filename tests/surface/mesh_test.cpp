// The mesh compared with a naive computation, on grids of all critical sizes.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <glm/geometric.hpp>
#include <glm/vec3.hpp>
#include <new>
#include <sstream>
#include <string>

#include "surface/coarse_mesh.h"
#include "surface/mesh.h"
#include "surface/row_bands.h"
#include "surface/statistics.h"
#include "surface/surface_model.h"
#include "tests/support/test_grid.h"

namespace morvane {
namespace {

using Vector = glm::dvec3;

const Colour kLowest = standardColours().stops.front();
const Colour kHighest = standardColours().stops.back();

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

Vector at(const std::vector<float>& values, std::size_t vector) {
  return {values[3 * vector], values[3 * vector + 1], values[3 * vector + 2]};
}

/// Compares the mesh with a naive computation; each vertex normal sums over all triangles. A
/// triangle with a missing corner does not exist.
void expectNaiveMesh(const HeightGrid& grid) {
  SCOPED_TRACE(std::to_string(grid.width()) + " x " + std::to_string(grid.height()));
  constexpr std::size_t kColumnOf[] = {0, 1, 0, 0, 1, 1};
  constexpr std::size_t kRowOf[] = {0, 1, 1, 0, 0, 1};
  const Mesh mesh(grid);
  const std::size_t vertices = mesh.positions.size() / 3;
  std::vector<Vector> corners, faces;
  for (std::size_t v = 0; v < vertices; ++v) {
    const std::size_t cell = v / 6;
    const std::size_t column = cell % (grid.width() - 1) + kColumnOf[v % 6];
    const std::size_t row = cell / (grid.width() - 1) + kRowOf[v % 6];
    const auto height = static_cast<float>(grid.row(row)[column]);
    corners.emplace_back(static_cast<float>(column) / 1000.0F, static_cast<float>(row) / 1000.0F,
                         height);
    if (v % 3 != 2) continue;
    faces.push_back(
        glm::normalize(glm::cross(corners[v - 1] - corners[v - 2], corners[v] - corners[v - 2])));
  }
  for (const std::vector<float>* floats : {&mesh.positions, &mesh.normals, &mesh.colours}) {
    EXPECT_TRUE(std::ranges::all_of(*floats, [](float value) { return std::isfinite(value); }));
  }
  for (std::size_t v = 0; v < vertices; ++v) {
    const Vector& face = faces[v / 3];
    if (std::isnan(face.z)) {
      const auto corner = [&](std::size_t i) { return at(mesh.positions, v - v % 3 + i); };
      ASSERT_TRUE(corner(0) == corner(1) || corner(1) == corner(2) || corner(2) == corner(0)) << v;
      continue;
    }
    Vector sum(0.0);
    for (std::size_t other = 0; other < vertices; ++other) {
      if (corners[other] == corners[v] && !std::isnan(faces[other / 3].z)) sum += faces[other / 3];
    }
    ASSERT_EQ(at(mesh.positions, v), corners[v]) << v;
    ASSERT_LT(glm::distance(at(mesh.faces, v / 3), face), 3e-4) << v;
    ASSERT_LT(glm::distance(at(mesh.normals, v), glm::normalize(sum)), 3e-4) << v;
    ASSERT_EQ(at(mesh.colours, v), Vector(0.5)) << v;
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
  for (const std::size_t i : {0U, 4U, 8U, 30U, 31U, 76U, 89U, 126U, 134U}) grid->values()[i] = NAN;
  expectNaiveMesh(*grid);
}

TEST(Mesh, IsTheSameWhenItIsBuiltInSeveralCalls) {
  const auto grid = roughGrid(9, 40);
  const Mesh whole(*grid);
  Mesh pieces(*gridOf(9, 40, std::vector<double>(9 * 40)));
  for (std::size_t row = 0; row < 39; row += 5) {
    buildMesh(*grid, {}, {pieces.positions, pieces.normals, pieces.colours, pieces.faces},
              {row, row + 5});
  }
  EXPECT_TRUE(whole.positions == pieces.positions && whole.normals == pieces.normals &&
              whole.colours == pieces.colours && whole.faces == pieces.faces);
}

/// The vertex of the full mesh at a grid point. At the last row or column it is another corner.
std::size_t vertexAt(const HeightGrid& grid, std::size_t column, std::size_t row) {
  const std::size_t right = column + 1 == grid.width() ? 1 : 0;
  const std::size_t below = row + 1 == grid.height() ? 1 : 0;
  constexpr std::size_t kCorner[2][2] = {{0, 4}, {2, 1}};
  return 6 * ((row - below) * (grid.width() - 1) + column - right) + kCorner[below][right];
}

TEST(CoarseMesh, HasThePointsOfTheFullOneUpToTheLastRowAndColumn) {
  const auto grid = roughGrid(12, 9);
  const HeatMapScale scale(standardColours(), -4.0F, 4.0F);
  const MeshLook look = {{true, -3.0F, 3.5F}, &scale, nullptr};
  const Mesh full(*grid, look);
  for (const std::size_t step : {1, 2, 3, 5, 20}) {
    const CoarseMesh coarse = buildCoarseMesh(*grid, look, step);
    std::size_t vertex = 0;
    for (std::size_t row = 0; row < 9; row = row == 8 ? 9 : std::min<std::size_t>(row + step, 8)) {
      for (std::size_t column = 0; column < 12;
           column = column == 11 ? 12 : std::min<std::size_t>(column + step, 11)) {
        const std::size_t same = vertexAt(*grid, column, row);
        for (std::size_t i = 0; i < 3; ++i) {
          EXPECT_EQ(coarse.positions[3 * vertex + i], full.positions[3 * same + i]);
          EXPECT_EQ(coarse.normals[3 * vertex + i], full.normals[3 * same + i]);
          EXPECT_EQ(coarse.colours[3 * vertex + i], full.colours[3 * same + i]);
        }
        ++vertex;
      }
    }
    EXPECT_EQ(vertex, coarse.vertices());
    EXPECT_EQ(vertex, coarseVertices(*grid, step));
  }
  EXPECT_EQ(coarseStep(*grid, 12), 4U) << "4 x 3 points";
}

/// Twice the area of the coarse triangles, in grid points.
double coveredCells(const CoarseMesh& mesh) {
  double area = 0.0;
  for (std::size_t i = 0; i < mesh.corners.size(); i += 3) {
    const auto at = [&](std::size_t corner) {
      const float* p = &mesh.positions[3 * std::size_t{mesh.corners[i + corner]}];
      return Vector(p[0], p[1], 0.0);
    };
    area += glm::cross(at(1) - at(0), at(2) - at(0)).z * 1e6;
  }
  return area;
}

TEST(CoarseMesh, LeavesOutTrianglesWithAMissingCorner) {
  auto grid = roughGrid(9, 9);
  EXPECT_NEAR(coveredCells(buildCoarseMesh(*grid, {}, 4)), 128.0, 1e-3);
  grid->values()[4 * 9 + 4] = std::nan("");
  const CoarseMesh holed = buildCoarseMesh(*grid, {}, 4);
  EXPECT_NEAR(coveredCells(holed), 128.0 - 6 * 16.0, 1e-3);
  EXPECT_EQ(holed.positions[3 * 4 + 2], holed.positions[2]) << "drawn as a point, at another one";
  std::fill(grid->values().begin(), grid->values().end(), std::nan(""));
  EXPECT_EQ(buildCoarseMesh(*grid, {}, 4).vertices(), 0U);
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

TEST(Mesh, TheFailureOfAWorkerIsReportedWhenAllHaveEnded) {
  std::atomic<std::size_t> rows = 0;
  const auto work = [&rows](std::size_t band, std::size_t first, std::size_t end) {
    if (band == 3) throw std::bad_alloc();
    rows += end - first;
  };
  EXPECT_THROW(forEachRowBand(23, work), std::bad_alloc);
  EXPECT_EQ(rows, 22U - 23U / kWorkers) << "all but those of the band that failed";
}

TEST(Scale, ColoursItsEndsAndNothingBeyond) {
  const HeatMapScale scale(standardColours(), -1.5F, 3.7F);
  EXPECT_EQ(scale.colourOf(-1.5F), kLowest);
  EXPECT_EQ(scale.colourOf(3.7F), kHighest);
  EXPECT_EQ(scale.colourOf(-1.6F), kUncoloured);
  EXPECT_EQ(scale.colourOf(9.9F), kUncoloured);
  EXPECT_EQ(HeatMapScale(standardColours(), 2.0F, 2.0F).colourOf(2.0F), kUncoloured);
  const HeatMapScale reversed(standardColours(), 3.0F, -3.0F);
  EXPECT_EQ(reversed.colourOf(3.0F), kLowest);
  EXPECT_EQ(reversed.colourOf(-3.0F), kHighest);
  // Reversed limits that colour what lies beyond keep their ends where they are.
  const HeatMapScale ends(standardColours(), 3.0F, -3.0F, Beyond::kNearerEnd);
  EXPECT_EQ(ends.colourOf(9.0F), kLowest);
  EXPECT_EQ(ends.colourOf(-9.0F), kHighest);
  EXPECT_EQ(ends.colourOf(NAN), kUncoloured);
}

double lightness(const Colour& colour) {
  return std::cbrt(0.2126 * colour[0] + 0.7152 * colour[1] + 0.0722 * colour[2]);
}

TEST(ColourMaps, RiseInSmallStepsAndColourAllHeights) {
  for (const ColourMap& map : colourMaps().subspan(1)) {
    SCOPED_TRACE(map.name);
    EXPECT_EQ(colourMap(map.option), &map);
    for (std::size_t i = 1; i < map.stops.size(); ++i) {
      EXPECT_GT(lightness(map.stops[i]), lightness(map.stops[i - 1])) << i;
      EXPECT_LT(lightness(map.stops[i]), lightness(map.stops[i - 1]) + 0.17) << i;
    }
    const HeatMapScale scale(map, -1.0F, 1.0F);
    EXPECT_EQ(scale.colourOf(-9.0F), map.stops.front());
    EXPECT_EQ(scale.colourOf(1.001F), map.stops.back());
    EXPECT_EQ(scale.colourOf(NAN), kUncoloured);
  }
  const auto screen = [](float linear) {
    return 255.0F * (1.055F * std::pow(linear, 1.0F / 2.4F) - 0.055F);
  };
  // Colour 128 of the published 0 to 255 is between two stops.
  const Colour middle = HeatMapScale(*colourMap("viridis"), 0.0F, 255.0F).colourOf(128.0F);
  EXPECT_NEAR(screen(middle[0]), 32.5, 1.0);
  EXPECT_NEAR(screen(middle[1]), 144.6, 1.0);
  EXPECT_NEAR(screen(middle[2]), 140.4, 1.0);
}

TEST(Scale, HasOnlyValidColours) {
  constexpr float kHuge = 3e38F;  // twice that overflows to infinity
  for (const auto& [lower, upper] : {std::pair{-kHuge, kHuge},
                                     {0.0F, INFINITY},
                                     {NAN, 1.0F},
                                     {0.0F, 5e-39F},
                                     {0.0F, 1e-45F},
                                     {1e6F, 1e6F + 0.125F}}) {
    for (const float part : {0.0F, 0.2F, 0.5F, 0.9F, 1.0F}) {
      const float height = lower * (1.0F - part) + upper * part;
      for (const float channel : HeatMapScale(standardColours(), lower, upper).colourOf(height)) {
        EXPECT_TRUE(channel >= 0.0F && channel <= 1.0F)
            << channel << " at " << height << " in " << lower << " to " << upper;
      }
    }
  }
}

TEST(Model, ColoursByTheGlobalLimitsAndClampsToTheTypedOnes) {
  std::ostringstream log;
  SurfaceModel model(log);
  model.setRaw(gridOf(2, 2, {-50, -2, 2, 50}));
  model.crop = {true, -20.0F, 20.0F};
  model.globalLimits = {-5.0F, 5.0F};
  model.measure();
  std::vector<float> positions(18), normals(18), colours(18);
  model.build({positions, normals, colours, {}});
  EXPECT_EQ(positions[2], -20.0F);
  EXPECT_EQ(positions[5], 20.0F);
  EXPECT_TRUE(std::equal(kLowest.begin(), kLowest.end(), colours.begin()));
  EXPECT_TRUE(std::equal(kHighest.begin(), kHighest.end(), colours.begin() + 3));
  EXPECT_EQ(model.colourScale().upper(), 5.0F) << "what the key shows";
}

TEST(AutomaticScale, StepsFinerOnSmoothSurfaces) {
  const auto expected = [](double step, float sd) {
    return static_cast<float>(step * 400.0 / sd / 1000.0 / 0.000027);
  };
  EXPECT_FLOAT_EQ(automaticScale(0.19F, 400), expected(0.01, 0.19F));
  EXPECT_FLOAT_EQ(automaticScale(0.21F, 400), expected(0.05, 0.21F));
}

// ---- heights that are not finite are points the instrument could not see, not data

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
  for (const double missing : std::initializer_list<double>{NAN, INFINITY, -INFINITY, 1e300}) {
    const Built with(gridOf(3, 3, {missing, 1, 2, 3, 4, missing, 6, 7, 8}));
    EXPECT_FLOAT_EQ(with.model.mean(), 31.0F / 7.0F);
    EXPECT_FLOAT_EQ(with.model.variance(), 5.9591837F);
    // The limits start at the first finite height.
    EXPECT_EQ(with.model.limits().trueMin, 1.0F);
    EXPECT_EQ(with.model.limits().trueMax, 8.0F);
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
  // Single ones, neighbours, some at the rim, and all around point 50, which then has no face.
  for (const std::size_t i : {4, 8, 20, 27, 28, 41, 49, 60}) {
    grid->values()[i] = NAN;
  }
  const std::vector<int> drawn = drawnPoints(Built(grid));
  for (std::size_t i = 0; i < drawn.size(); ++i) {
    EXPECT_EQ(drawn[i] > 0, std::isfinite(grid->values()[i]) && i != 50) << i;
  }
}

TEST(MissingPoints, MayBeAllPoints) {
  const Built built(gridOf(3, 3, std::vector<double>(9, NAN)));
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
  EXPECT_TRUE(std::ranges::all_of(built.normals, [](float n) { return std::isfinite(n); }));
}

}  // namespace
}  // namespace morvane
