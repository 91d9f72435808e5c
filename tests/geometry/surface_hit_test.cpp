// The cursor's point on the surface against the triangles that are drawn.
#include <gtest/gtest.h>

#include <cmath>
#include <glm/geometric.hpp>
#include <random>
#include <vector>

#include "geometry/surface_hit.h"
#include "surface/mesh.h"
#include "tests/support/test_grid.h"

namespace morvane {
namespace {

Ray rayThrough(const glm::vec3& from, const glm::vec3& to) {
  const glm::vec3 direction = glm::normalize(to - from);
  return {from, direction, from + direction * kRayLength};
}

/// The triangles of the mesh as it is uploaded, in the space of the pins.
std::vector<glm::dvec3> drawnTriangles(const DrawnHeights& heights) {
  const std::size_t floats = cellCount(heights.grid) * kFloatsPerCell;
  std::vector<float> positions(floats);
  std::vector<float> others(floats);
  buildMesh(heights.grid, {heights.crop}, {positions, others, others, {}});
  std::vector<glm::dvec3> corners;
  for (std::size_t i = 0; i < floats; i += 3) {
    corners.emplace_back(positions[i], positions[i + 1],
                         positions[i + 2] * heightToModel(heights.zScale));
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

bool inside(const glm::vec3& point, const HeightGrid& grid) {
  return point.x >= 0.0F && point.x <= static_cast<float>(grid.width() - 1) / kPointsPerUnit &&
         point.y >= 0.0F && point.y <= static_cast<float>(grid.height() - 1) / kPointsPerUnit;
}

TEST(SurfaceHit, IsTheNearestOfAllDrawnTriangles) {
  const auto grid = roughGrid(23, 17);
  for (const std::size_t missing : {3U, 60U, 61U, 62U, 84U, 200U, 390U}) {
    grid->values()[missing] = missing % 2 == 0 ? NAN : INFINITY;
  }
  std::mt19937 random(7);
  std::uniform_real_distribution<float> part(0.0F, 1.0F);
  const auto somewhere = [&](float depth) {
    const float x = part(random) * 0.022F;
    const float y = part(random) * 0.016F;
    return glm::vec3(x, y, (part(random) - 0.5F) * depth);
  };
  for (const bool cropped : {false, true}) {
    const DrawnHeights heights = {*grid, {cropped, -3.0F, 2.0F}, 30.0F, 0.0F};
    const auto triangles = drawnTriangles(heights);
    int met = 0;
    for (int i = 0; i < 2000; ++i) {
      const glm::vec3 from = somewhere(0.05F);
      const Ray ray = rayThrough(from, somewhere(0.01F));
      const double expected = nearest(triangles, ray);
      const auto hit = surfaceHit(heights, ray, glm::mat4(1.0F));
      // The rim is a thousandth of a step wider than the triangles.
      if (hit && hit->onSurface && !inside(hit->point, *grid)) continue;
      ASSERT_EQ(hit && hit->onSurface, std::isfinite(expected)) << "ray " << i;
      if (!std::isfinite(expected)) continue;
      ++met;
      const glm::vec3 point = ray.origin + ray.direction * static_cast<float>(expected);
      ASSERT_NEAR(glm::distance(hit->point, point), 0.0F, 1e-6F) << "ray " << i;
    }
    EXPECT_GT(met, 1000);
  }
}

struct View {
  float degrees;
  glm::vec3 axis;
  float distance;
  glm::vec2 pan;
};

// From the start view over leaning and turned ones to views from below, from afar and from behind.
const View kViews[] = {
    {0.0F, {0, 0, 1}, 3.0F, {0.0F, 0.0F}},     {-40.0F, {1, 0, 0}, 1.0F, {0.1F, -0.05F}},
    {35.0F, {1, 2, 3}, 0.7F, {-0.12F, 0.04F}}, {170.0F, {0.1F, 0, 1}, 2.0F, {0.6F, 0.4F}},
    {180.0F, {1, 0, 0}, 1.5F, {0.0F, 0.1F}},   {150.0F, {1, 1, 0}, 0.9F, {-0.1F, 0.0F}},
    {-30.0F, {1, 1, 0}, 40.0F, {3.0F, -2.0F}}, {20.0F, {0, 1, 0}, -1.2F, {0.0F, 0.0F}},
};

TEST(SurfaceHit, ReturnsThePointThatIsSeenThereInEveryView) {
  constexpr std::size_t kColumns = 300;
  constexpr std::size_t kRows = 200;
  const auto grid = gridFrom(kColumns, kRows, [](double column, double row) {
    return 900.0 + 6.0 * std::sin(0.09 * column) + 0.03 * row;
  });
  constexpr float kLift = -903.0F * 80.0F * kHeightToModel;
  const DrawnHeights heights = {*grid, {}, 80.0F, 903.0F, kLift};
  for (const View& view : kViews) {
    Camera camera;
    camera.rotation = glm::angleAxis(glm::radians(view.degrees), glm::normalize(view.axis));
    camera.eye = {0.0F, 0.0F, view.distance};
    camera.pan = view.pan;
    const ViewMatrices matrices = viewMatrices(camera, 980, 775, 300, 200, heights.zScale, kLift);
    const glm::dmat4 sight = glm::dmat4(matrices.projection) * glm::dmat4(matrices.view);
    const auto seen = [&](const glm::vec4& world) {
      return glm::vec2(project(sight, 980, 775, glm::vec3(world)));
    };
    for (std::size_t i = kColumns + 1; i < (kRows - 1) * kColumns; i += 97) {
      const std::size_t column = i % kColumns;
      const std::size_t row = i / kColumns;
      // From afar the rounding of a pixel may miss the very rim.
      if (column == 0 || column == kColumns - 1) continue;
      const glm::vec4 point(static_cast<float>(column) / kPointsPerUnit,
                            static_cast<float>(row) / kPointsPerUnit,
                            static_cast<float>(grid->values()[i]), 1.0F);
      const glm::vec4 world = matrices.model * point;
      const glm::vec2 window = seen(world);
      const Ray ray = pickRay(matrices, 980, 775, window.x, window.y);
      const auto hit = surfaceHit(heights, ray, matrices.overlay);
      ASSERT_TRUE(hit && hit->onSurface) << view.degrees << " degrees, point " << i;
      const glm::vec4 found = matrices.overlay * glm::vec4(hit->point, 1.0F);
      EXPECT_LT(glm::distance(seen(found), window), 0.05F) << view.degrees << ", point " << i;
      EXPECT_LT(glm::distance(found, world), 1e-5F * std::abs(view.distance)) << view.degrees;
    }
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

}  // namespace
}  // namespace morvane
