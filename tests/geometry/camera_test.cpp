// The camera against the reference rows, and what must hold for every view.
#include <gtest/gtest.h>

#include <cmath>
#include <glm/geometric.hpp>

#include "geometry/camera_views.h"
#include "geometry/light.h"
#include "surface/mesh.h"
#include "tests/geometry/golden_rows.h"
#include "tests/support/test_grid.h"

namespace morvane {
namespace {

/// q and −q are the same rotation.
void expectRotation(const GoldenRow& row, glm::quat q) {
  const double* end = row.numbers.data() + row.numbers.size();
  if (q.w * end[-4] + q.x * end[-3] + q.y * end[-2] + q.z * end[-1] < 0.0) q = -q;
  expectEnd(row, {q.w, q.x, q.y, q.z});
}

Camera cameraAt(float distance) {
  Camera camera;
  camera.distance = distance;
  camera.eye = {0.0F, 0.0F, distance};
  return camera;
}

TEST(GoldenCamera, FollowsEveryRow) {
  Camera turned;
  Camera zoomed;
  zoomed.zoomAnchor = {0.125F, -0.25F};
  for (const GoldenRow& row : goldenRows("view/camera.txt")) {
    if (row.name == "arcball") {
      const glm::vec3 p = arcballPoint(row.whole(0), row.whole(1), row.at(2), row.at(3));
      expectEnd(row, {p.x, p.y, p.z});
    } else if (row.name == "rotation") {
      const glm::vec3 from(row.at(0), row.at(1), row.at(2));
      expectRotation(row, rotationBetween(from, {row.at(3), row.at(4), row.at(5)}));
    } else if (row.name == "drag") {
      pressTurn(turned, {row.at(2), row.at(3)});
      dragTurn(turned, row.whole(0), row.whole(1), {11.0F, 700.0F});
      dragTurn(turned, row.whole(0), row.whole(1), {row.at(4), row.at(5)});
      releaseTurn(turned);
      expectRotation(row, turned.rotation);
    } else if (row.name == "zoom") {
      zoom(zoomed, row.line.find("out") != std::string::npos ? Zoom::kOut : Zoom::kIn);
      expectEnd(row, {zoomed.eye.z, zoomed.zoomStep, zoomed.pan.x, zoomed.pan.y});
    } else if (row.name == "ray") {
      const ViewMatrices matrices =
          viewMatrices(cameraAt(row.at(4)), row.whole(0), row.whole(1), 400, 300, 1.0F);
      const auto [origin, way, end] =
          pickRay(matrices, row.whole(0), row.whole(1), row.at(2), row.at(3));
      expectEnd(row, {origin.x, origin.y, origin.z, way.x, way.y, way.z, end.x, end.y, end.z});
    } else if (row.name == "model") {
      turned.pan = {row.at(3), row.at(4)};
      const auto m = viewMatrices(turned, 980, 775, row.size(0), row.size(1), row.at(2)).model;
      expectEnd(row, {m[0][0], m[1][0], m[2][0], m[3][0], m[0][1], m[1][1], m[2][1], m[3][1],
                      m[0][2], m[1][2], m[2][2], m[3][2], m[0][3], m[1][3], m[2][3], m[3][3]});
    } else {
      ADD_FAILURE() << row.line;
    }
  }
}

TEST(Camera, TurnsOnlyBetweenPressAndRelease) {
  Camera camera;
  dragTurn(camera, 980, 775, {300.0F, 300.0F});
  pressTurn(camera, {100.0F, 100.0F});
  EXPECT_EQ(camera.rotation, Camera().rotation) << "neither a move nor a press turns anything";
  dragTurn(camera, 980, 775, {300.0F, 300.0F});
  releaseTurn(camera);
  const glm::quat kept = camera.rotation;
  EXPECT_NE(kept, Camera().rotation);
  dragTurn(camera, 980, 775, {500.0F, 100.0F});
  EXPECT_EQ(camera.rotation, kept);
}

TEST(Camera, DrawsHeightsFarFromZeroAboutIt) {
  // At the automatic scale a height of 1 is a hundredth of a model unit; half the side is 0.2.
  constexpr float kAutomatic = 0.01F / kHeightToModel;
  const auto lift = [](float zMin, float zMax, float zScale) {
    return heightLift({.zMin = zMin, .zMax = zMax}, kAutomatic, 300, 400, zScale);
  };
  EXPECT_EQ(lift(-40.0F, 79.9F, kAutomatic), 0.0F);
  EXPECT_EQ(lift(-39.9F, -0.05F, 5.0F * kAutomatic), 0.0F) << "near, whatever the slider says";
  EXPECT_FLOAT_EQ(lift(10.0F, 31.0F, kAutomatic), -0.205F);
  EXPECT_FLOAT_EQ(lift(-51.0F, -49.0F, kAutomatic / 2.0F), 0.25F);
  // The infinite scale of a flat surface counts as 1.
  EXPECT_EQ(heightLift({.zMin = 50.0F, .zMax = 50.0F}, INFINITY, 300, 400, INFINITY), 0.0F);
}

TEST(Camera, SeesFromBehindAndFromTheOriginItself) {
  for (const float distance : {0.0F, -0.3F, 1e-30F}) {
    const ViewMatrices matrices = viewMatrices(cameraAt(distance), 980, 775, 400, 300, INFINITY);
    const Ray ray = pickRay(matrices, 980, 775, 10.0F, 700.0F);
    EXPECT_NEAR(glm::length(ray.direction), 1.0F, 1e-5F) << distance;
    EXPECT_EQ(ray.direction.z > 0.0F, distance < 0.0F) << distance;
  }
}

TEST(Camera, FitsTheSurfaceIntoTheRoomBesideTheKey) {
  const std::shared_ptr<HeightGrid> grid = roughGrid(600, 250);
  grid->values()[3 * 600 + 7] = std::nan("");
  for (const ViewDirection direction : {ViewDirection::kTop, ViewDirection::kFront,
                                        ViewDirection::kSide, ViewDirection::kIsometric}) {
    for (const int width : {300, 1600}) {
      constexpr int kHeight = 775;
      const DrawnHeights heights{*grid, {}, 0.02F / kHeightToModel, 0.0F, 0.01F};
      Camera camera;
      camera.rotation = rotationOf(direction);
      fit(camera, heights, width, kHeight);
      const ViewMatrices m =
          viewMatrices(camera, width, kHeight, 600, 250, heights.zScale, heights.lift);
      glm::vec2 low(INFINITY);
      glm::vec2 high(-INFINITY);
      for (std::size_t row = 0; row < 250; ++row) {
        for (std::size_t column = 0; column < 600; ++column) {
          const double z = grid->row(row)[column];
          if (std::isnan(z)) continue;
          const glm::vec4 point(modelUnits(column), modelUnits(row), static_cast<float>(z), 1.0F);
          const glm::vec4 clip = m.projection * m.view * m.model * point;
          EXPECT_GT(clip.w, kNearPlane);
          low = glm::min(low, glm::vec2(clip) / clip.w);
          high = glm::max(high, glm::vec2(clip) / clip.w);
        }
      }
      const glm::vec2 room = (high - low) / glm::vec2(1.62F, 1.78F);
      EXPECT_NEAR(std::max(room.x, room.y), 1.0F, 0.01F) << width;
      EXPECT_TRUE(low.x > -0.95F && high.x < 0.69F && low.y > -0.93F && high.y < 0.87F)
          << low.x << " to " << high.x << ", " << low.y << " to " << high.y;
    }
  }
}

TEST(Lamp, IsSetByDirectionsAndTurnsWithTheSurface) {
  for (const Lamp& lamp : {Lamp{10.0F, 80.0F}, Lamp{200.0F, 0.0F}, Lamp{359.0F, 45.0F}}) {
    const Lamp back = lampTowards(3.0F * directionTo(lamp));
    EXPECT_NEAR(back.azimuth, lamp.azimuth, 1e-3F);
    EXPECT_NEAR(back.elevation, lamp.elevation, 1e-3F);
  }
  EXPECT_EQ(lampTowards({0.0F, 2.0F, -1.0F}), (Lamp{90.0F, 0.0F}));
  const glm::quat quarter = glm::angleAxis(glm::radians(90.0F), glm::vec3(0.0F, 0.0F, 1.0F));
  const glm::vec3 turned = lightDirection(Lamp{0.0F, 0.0F}, quarter);
  EXPECT_LT(glm::distance(turned, glm::vec3(0.0F, -1.0F, 0.0F)), 1e-6F);
  EXPECT_EQ(lightDirection({}, quarter), glm::vec3(0.0F, 0.0F, -1.0F));
}

}  // namespace
}  // namespace morvane
