// The cursor's point on the surface against the triangles that are drawn, and lines on the surface.
#include <gtest/gtest.h>

#include <cmath>
#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <random>
#include <sstream>
#include <vector>

#include "geometry/point_text.h"
#include "geometry/surface_hit.h"
#include "geometry/surface_line.h"
#include "geometry/thick_line.h"
#include "surface/mesh.h"
#include "tests/support/test_grid.h"

namespace morvane {
namespace {

Ray rayThrough(const glm::vec3& from, const glm::vec3& to) {
  const glm::vec3 direction = glm::normalize(to - from);
  return {from, direction, from + direction * kRayLength};
}

/// The triangles of the mesh as they are uploaded and drawn by `model`.
std::vector<glm::dvec3> drawnTriangles(const DrawnHeights& heights, const glm::dmat4& model) {
  const std::size_t floats = cellCount(heights.grid) * kFloatsPerCell;
  std::vector<float> positions(floats);
  std::vector<float> others(floats);
  buildMesh(heights.grid, {heights.crop}, {positions, others, others, {}});
  std::vector<glm::dvec3> corners;
  for (std::size_t i = 0; i < floats; i += 3) {
    corners.emplace_back(model * glm::dvec4(positions[i], positions[i + 1], positions[i + 2], 1.0));
  }
  return corners;
}

/// How far along a ray the nearest triangle is (Möller and Trumbore 1997); infinite without any.
double nearest(const std::vector<glm::dvec3>& corners, const Ray& ray) {
  const glm::dvec3 direction(ray.direction);
  double found = INFINITY;
  for (std::size_t i = 0; i < corners.size(); i += 3) {
    const glm::dvec3 edge1 = corners[i + 1] - corners[i];
    const glm::dvec3 edge2 = corners[i + 2] - corners[i];
    const glm::dvec3 p = glm::cross(direction, edge2);
    const double determinant = glm::dot(edge1, p);
    const glm::dvec3 s = glm::dvec3(ray.origin) - corners[i];
    const glm::dvec3 q = glm::cross(s, edge1);
    const double u = glm::dot(s, p) / determinant;
    const double v = glm::dot(direction, q) / determinant;
    const double t = glm::dot(edge2, q) / determinant;
    if (u >= 0.0 && v >= 0.0 && u + v <= 1.0 && t >= 0.0) found = std::min(found, t);
  }
  return found;
}

// The start view, tilted and turned views, and views from below, from far away and from behind.
const struct View {
  float degrees;
  glm::vec3 axis;
  float distance;
  glm::vec2 pan;
} kViews[] = {
    {0.0F, {0, 0, 1}, 0.3F, {0.0F, 0.0F}},       {-40.0F, {1, 0, 0}, 0.1F, {0.01F, -0.005F}},
    {35.0F, {1, 2, 3}, 0.07F, {-0.01F, 0.004F}}, {170.0F, {0.1F, 0, 1}, 0.2F, {0.06F, 0.04F}},
    {180.0F, {1, 0, 0}, 0.15F, {0.0F, 0.01F}},   {150.0F, {1, 1, 0}, 0.09F, {-0.01F, 0.0F}},
    {-30.0F, {1, 1, 0}, 4.0F, {0.3F, -0.2F}},    {20.0F, {0, 1, 0}, -0.12F, {0.0F, 0.0F}},
};

TEST(SurfaceHit, IsTheNearestOfAllDrawnTrianglesInEveryView) {
  constexpr float kScale = 30.0F;
  constexpr float kLift = -900.0F * kScale * kHeightToModel;
  const auto grid = roughGrid(23, 17);
  for (double& height : grid->values()) height += 900.0;
  for (const std::size_t missing : {3U, 60U, 61U, 62U, 84U, 200U, 390U}) {
    grid->values()[missing] = missing % 2 == 0 ? NAN : INFINITY;
  }
  std::mt19937 random(7);
  const auto upTo = [&](float most) {
    return std::uniform_real_distribution<float>(0.0F, most)(random);
  };
  for (const View& view : kViews) {
    const DrawnHeights heights = {*grid, {view.degrees > 0.0F, 897.0F, 902.0F}, kScale, 0, kLift};
    Camera camera;
    camera.rotation = glm::angleAxis(glm::radians(view.degrees), glm::normalize(view.axis));
    camera.eye = {0.0F, 0.0F, view.distance};
    camera.pan = view.pan;
    const ViewMatrices matrices = viewMatrices(camera, 980, 775, 23, 17, kScale, kLift);
    const glm::mat4 sight = matrices.projection * matrices.view * matrices.overlay;
    const auto triangles = drawnTriangles(heights, matrices.model);
    int met = 0;
    for (int i = 0; i < 400; ++i) {
      const glm::vec3 somewhere(upTo(0.022F), upTo(0.016F), 0.0F);
      const glm::vec2 pixel = project(sight, 980, 775, somewhere);
      const Ray ray = pickRay(matrices, 980, 775, pixel.x, pixel.y);
      const double expected = nearest(triangles, ray);
      const auto hit = surfaceHit(heights, ray, matrices.overlay);
      const bool found = hit && hit->onSurface;
      // The rim is a thousandth of a step wider than the triangles.
      const glm::vec3 edge =
          found ? glm::min(hit->point, glm::vec3(0.022F, 0.016F, 0) - hit->point) : glm::vec3(0.0F);
      if (found && (edge.x < 0.0F || edge.y < 0.0F)) continue;
      ASSERT_EQ(found, std::isfinite(expected)) << view.degrees << " degrees, ray " << i;
      if (!found) continue;
      ++met;
      const glm::vec3 point = ray.origin + ray.direction * static_cast<float>(expected);
      const glm::vec3 shown(matrices.overlay * glm::vec4(hit->point, 1.0F));
      ASSERT_LT(glm::distance(shown, point), 1e-5F * std::abs(view.distance)) << view.degrees;
    }
    EXPECT_GT(met, 200) << view.degrees;
  }
}

TEST(SurfaceHit, FallsBackToTheMeanPlane) {
  const auto grid = gridOf(10, 10, std::vector<double>(100, 5.0));
  grid->values()[55] = NAN;
  const DrawnHeights heights = {*grid, {}, 1.0F / kHeightToModel, 2.0F};
  const auto down = [](float x, float y) { return rayThrough({x, y, 9.0F}, {x, y, 0.0F}); };
  const glm::mat4 overlay(1.0F);
  EXPECT_NEAR(surfaceHit(heights, down(0.002F, 0.003F), overlay)->point.z, 5.0F, 1e-5F);
  const auto beside = surfaceHit(heights, down(-0.2F, 0.3F), overlay);
  EXPECT_FALSE(beside->onSurface);
  EXPECT_NEAR(glm::distance(beside->point, glm::vec3(-0.2F, 0.3F, 2.0F)), 0.0F, 1e-5F);
  EXPECT_NEAR(surfaceHit(heights, down(0.0051F, 0.0053F), overlay)->point.z, 2.0F, 1e-5F);

  EXPECT_FALSE(surfaceHit(heights, rayThrough({0, 0, 9}, {0, 0, 10}), overlay)) << "away from it";
  EXPECT_FALSE(surfaceHit(heights, rayThrough({0, 0, 9}, {1, 0, 9}), overlay)) << "along it";
  EXPECT_FALSE(surfaceHit(heights, down(0.002F, 0.003F), glm::mat4(NAN)));
  const auto line = gridOf(10, 1, std::vector<double>(10, 5.0));
  EXPECT_FALSE(surfaceHit({*line, {}, 1.0F, 0.0F}, down(0.002F, 0.0F), overlay)->onSurface);
}

TEST(SurfaceHit, FindsGridPointsEdgesAndTheRimStraightFromAbove) {
  const auto grid = roughGrid(5, 4);
  const DrawnHeights heights = {*grid, {}, 1.0F, 0.0F};
  for (int y = 0; y <= 12; ++y) {
    for (int x = 0; x <= 16; ++x) {
      const glm::vec3 foot(static_cast<float>(x) / 4000.0F, static_cast<float>(y) / 4000.0F, 0.0F);
      const auto hit =
          surfaceHit(heights, {foot + glm::vec3(0, 0, 1), {0, 0, -1}, {}}, glm::mat4(1.0F));
      EXPECT_TRUE(hit && hit->onSurface) << x << ", " << y;
    }
  }
}

TEST(PointText, NamesTheNearestPointWithItsTrueHeight) {
  std::ostringstream log;
  ShownSurface shown(log);
  Measurement measurement;
  measurement.grid = gridFrom(5, 4, [](double column, double row) {
    return column == 2.0 && row == 1.0 ? std::nan("") : column - 10.0 * row;
  });
  measurement.header.pixelSizeX = 0.02;
  measurement.header.pixelSizeY = 0.0004;
  shown.show(measurement);
  shown.setCrop({.on = true, .min = -1.0F, .max = 1.0F});
  const auto at = [&](float column, float row) {
    const glm::vec3 place(column / kPointsPerUnit, row / kPointsPerUnit, 1.0F);
    return pointText(shown, rayThrough(place, place - glm::vec3(0.0F, 0.0F, 1.0F)),
                     glm::mat4(1.0F));
  };
  EXPECT_EQ(at(3.4F, 2.7F), "x 0.060 mm   y 0.00120 mm   z -27.000 µm") << "not cut by the limits";
  EXPECT_EQ(at(2.1F, 1.2F), "x 0.040 mm   y 0.00040 mm   z no data");
  EXPECT_EQ(at(4.8F, 1.0F), "");
  EXPECT_EQ(at(1.0F, -0.7F), "");
}

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
  for (std::size_t i = 2; i < pieces.ends.size(); i += 2) {
    EXPECT_TRUE(i == 50 || pieces.ends[i].x < pieces.ends[i - 1].x) << "no crack between pieces";
  }
  EXPECT_EQ(pieces.ends.front(), line.front());
  EXPECT_EQ(pieces.ends.back(), line.back());
}

TEST(ThickLine, IsAsWideAsItShouldBeAndEndsInFrontOfTheEye) {
  const auto box = [](const glm::vec4& from, const glm::vec4& to) {
    const glm::vec4 ends[] = {from, to};
    glm::vec2 low(INFINITY);
    glm::vec2 high(-INFINITY);
    for (const glm::vec2& corner : thickLines(ends, {200.0F, 100.0F}, 10.0F)) {
      low = glm::min(low, corner);
      high = glm::max(high, corner);
    }
    return glm::vec4(low, high);
  };
  const glm::vec4 expected = {-0.05F, -0.1F, 0.55F, 0.1F};
  EXPECT_LT(glm::distance(box({0, 0, 0, 1}, {1, 0, 0, 2}), expected), 1e-5F);
  const glm::vec4 cut = box({0, 0, 0, 1}, {1, 0, 0, -1});
  EXPECT_TRUE(cut.z > 1.0F && std::isfinite(cut.z)) << "up to the edge of the picture, and beyond";
  EXPECT_EQ(box({0, 0, 0, -2}, {1, 0, 0, -1}).x, INFINITY) << "nothing";
}

}  // namespace
}  // namespace morvane
