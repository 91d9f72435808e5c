#include "view/pick_world.h"

#include <GL/glew.h>
#include <btBulletDynamicsCommon.h>

#include <algorithm>
#include <array>
#include <glm/gtc/type_ptr.hpp>
#include <utility>
#include <vector>

#include "base/debug_log.h"

namespace morvane {
namespace {

btVector3 toBullet(const glm::vec3& v) { return {v.x, v.y, v.z}; }

btTransform toBullet(const glm::mat4& matrix) {
  std::array<btScalar, 16> values;
  std::copy_n(glm::value_ptr(matrix), values.size(), values.begin());
  btTransform transform;
  transform.setFromOpenGLMatrix(values.data());
  return transform;
}

/// Bullet's debug drawing as lines of immediate-mode GL. Kept: nothing calls it.
class BulletDebugDrawer_DeprecatedOpenGL : public btIDebugDraw {
 public:
  void drawLine(const btVector3& from, const btVector3& to, const btVector3& colour) override {
    glColor3d(colour.x(), colour.y(), colour.z());
    glBegin(GL_LINES);
    glVertex3d(from.x(), from.y(), from.z());
    glVertex3d(to.x(), to.y(), to.z());
    glEnd();
  }
  void drawContactPoint(const btVector3& /*point*/, const btVector3& /*normal*/,
                        btScalar /*distance*/, int /*lifeTime*/,
                        const btVector3& /*colour*/) override {}
  void reportErrorWarning(const char* warning) override { logStream() << warning << '\n'; }
  void draw3dText(const btVector3& /*place*/, const char* /*text*/) override {}
  void setDebugMode(int mode) override { mode_ = mode; }
  [[nodiscard]] int getDebugMode() const override { return mode_; }

 private:
  int mode_ = 0;
};

/// A static box, which is in the world during the lifetime of this object.
class PinBody {
 public:
  PinBody(btDynamicsWorld& world, Pin& pin, ToolKind kind, const btTransform& place)
      : world_(&world),
        pin_(&pin),
        kind_(kind),
        shape_(toBullet(pin.halfExtents)),
        motion_(place),
        body_(0.0F, &motion_, &shape_, btVector3(0, 0, 0)) {
    body_.setUserPointer(&pin);
    world_->addRigidBody(&body_);
  }
  ~PinBody() { world_->removeRigidBody(&body_); }
  PinBody(const PinBody&) = delete;
  PinBody& operator=(const PinBody&) = delete;

  [[nodiscard]] ToolKind kind() const { return kind_; }
  [[nodiscard]] const Pin& pin() const { return *pin_; }
  void place(const btTransform& place) {
    body_.setWorldTransform(place);
    world_->updateSingleAabb(&body_);
  }

 private:
  btDynamicsWorld* world_;
  Pin* pin_;
  ToolKind kind_;
  btBoxShape shape_;
  btDefaultMotionState motion_;
  btRigidBody body_;
};

}  // namespace

struct PickWorld::Bullet {
  btDefaultCollisionConfiguration configuration;
  btCollisionDispatcher dispatcher{&configuration};
  btDbvtBroadphase broadphase;
  btSequentialImpulseConstraintSolver solver;
  BulletDebugDrawer_DeprecatedOpenGL debugDrawer;
  btDiscreteDynamicsWorld world{&dispatcher, &broadphase, &solver, &configuration};
  std::vector<std::unique_ptr<PinBody>> bodies;
};

PickWorld::PickWorld() : bullet_(std::make_unique<Bullet>()) {
  bullet_->world.setGravity({0.0F, -9.81F, 0.0F});
  bullet_->world.setDebugDrawer(&bullet_->debugDrawer);
}

PickWorld::~PickWorld() = default;

void PickWorld::setMatrices(const ViewMatrices& matrices) { matrices_ = matrices; }

void PickWorld::addObject(Pin& pin, ToolKind kind) {
  bullet_->bodies.push_back(std::make_unique<PinBody>(bullet_->world, pin, kind,
                                                      toBullet(pinMatrix(pin, matrices_.overlay))));
}

void PickWorld::removeObjects(ToolKind kind) {
  std::erase_if(bullet_->bodies, [kind](const auto& body) { return body->kind() == kind; });
  lastHit_ = nullptr;
}

void PickWorld::refresh(ToolKind kind) {
  for (const auto& body : bullet_->bodies) {
    if (body->kind() == kind) body->place(toBullet(pinMatrix(body->pin(), matrices_.overlay)));
  }
}

bool PickWorld::contains(ToolKind kind) const {
  return std::any_of(bullet_->bodies.begin(), bullet_->bodies.end(),
                     [kind](const auto& body) { return body->kind() == kind; });
}

Pin* PickWorld::rayTest(const glm::vec3& origin, const glm::vec3& direction) {
  const btVector3 from = toBullet(origin);
  const btVector3 to = toBullet(origin + direction * kRayLength);
  btCollisionWorld::ClosestRayResultCallback result(from, to);
  bullet_->world.rayTest(from, to, result);
  lastHit_ =
      result.hasHit() ? static_cast<Pin*>(result.m_collisionObject->getUserPointer()) : nullptr;
  return lastHit_;
}

}  // namespace morvane
