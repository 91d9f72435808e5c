// Which pin a press of the mouse hits.
#include <gtest/gtest.h>

#include <glm/gtc/matrix_transform.hpp>

#include "view/pick_world.h"

namespace morvane {
namespace {

constexpr glm::vec3 kEye{0.0F, 0.0F, 3.0F};

Pin pinAt(const glm::vec3& position, const glm::vec3& halfExtents) {
  return {.position = position, .halfExtents = halfExtents};
}

class Picking : public testing::Test {
 protected:
  Pin* at(const glm::vec3& target) { return world_.rayTest(kEye, glm::normalize(target - kEye)); }
  PickWorld world_;
  Pin a_ = pinAt({0.1F, 0.0F, 0.05F}, {0.0075F, 0.0075F, 0.1F});
  Pin b_ = pinAt({-0.1F, 0.2F, 0.05F}, {0.05F, 0.05F, 0.1F});
};

TEST_F(Picking, FindsThePinsOfTheToolsThatAreOnAndNothingElse) {
  EXPECT_EQ(at(a_.position), nullptr);
  world_.addObject(a_, ToolKind::kProfile);
  world_.addObject(b_, ToolKind::kGrid);
  EXPECT_EQ(at(a_.position), &a_);
  EXPECT_EQ(world_.lastHit(), &a_);
  // The pin's own edges, not a sphere or a box around it.
  EXPECT_EQ(at({0.1F + 0.007F, 0.0F, 0.15F}), &a_);
  EXPECT_EQ(at({0.1F + 0.009F, 0.0F, 0.15F}), nullptr);
  EXPECT_EQ(at({-0.1F - 0.049F, 0.2F, 0.15F}), &b_);
  EXPECT_EQ(at({-0.1F - 0.052F, 0.2F, 0.15F}), nullptr);
  world_.removeObjects(ToolKind::kProfile);
  EXPECT_EQ(world_.lastHit(), nullptr);
  EXPECT_EQ(at(a_.position), nullptr);
  EXPECT_EQ(at(b_.position), &b_);
}

TEST_F(Picking, TakesTheNearerOfTwoInLine) {
  Pin front = pinAt({0.0F, 0.0F, 1.0F}, {0.05F, 0.05F, 0.1F});
  Pin behind = pinAt({0.0F, 0.0F, 0.0F}, {0.05F, 0.05F, 0.1F});
  world_.addObject(behind, ToolKind::kProfile);
  world_.addObject(front, ToolKind::kProfile);
  EXPECT_EQ(at({0.0F, 0.0F, 0.0F}), &front);
}

TEST_F(Picking, FollowsThePinsAndTheView) {
  world_.addObject(a_, ToolKind::kProfile);
  a_.position.x = 0.4F;
  world_.refresh(ToolKind::kProfile);
  EXPECT_EQ(at({0.1F, 0.0F, 0.05F}), nullptr);
  EXPECT_EQ(at({0.4F, 0.0F, 0.05F}), &a_);

  ViewMatrices matrices;
  matrices.overlay = glm::rotate(glm::mat4(1.0F), glm::radians(90.0F), glm::vec3(0, 1, 0));
  world_.setMatrices(matrices);
  world_.refresh(ToolKind::kProfile);
  // A quarter turn about y lays the pin along x: its place (0.4, 0, 0.05) is now (0.05, 0, −0.4).
  EXPECT_EQ(at({0.4F, 0.0F, 0.05F}), nullptr);
  EXPECT_EQ(at({0.14F, 0.0F, -0.4F}), &a_);
}

}  // namespace
}  // namespace morvane
