// The collision world in which a press of the mouse finds the pin under the cursor.
#pragma once

#include <glm/mat4x4.hpp>
#include <glm/vec3.hpp>
#include <memory>

#include "geometry/camera.h"
#include "geometry/pin.h"

namespace morvane {

/// Which tool a pin belongs to.
enum class ToolKind { kProfile, kGrid };

/// Holds the pins of the active tools as static boxes. There is no simulation.
class PickWorld {
 public:
  PickWorld();
  ~PickWorld();
  PickWorld(const PickWorld&) = delete;
  PickWorld& operator=(const PickWorld&) = delete;

  /// Sets the matrices of the frame. Rays are cast in their world space.
  void setMatrices(const ViewMatrices& matrices);

  /// Adds a pin, which must not move in memory until it is removed.
  void addObject(Pin& pin, ToolKind kind);
  /// Removes all pins of a tool.
  void removeObjects(ToolKind kind);
  /// Moves the boxes of a tool to its pins.
  void refresh(ToolKind kind);
  /// Whether any pin of the tool is in the world.
  [[nodiscard]] bool contains(ToolKind kind) const;

  /// The first pin hit by a ray of `kRayLength`, or null. `direction` must have length 1.
  Pin* rayTest(const glm::vec3& origin, const glm::vec3& direction);
  /// The result of the last ray test. Kept: not used.
  [[nodiscard]] Pin* lastHit() const { return lastHit_; }

 private:
  struct Bullet;  // keeps Bullet's headers out of this one
  std::unique_ptr<Bullet> bullet_;
  ViewMatrices matrices_;
  Pin* lastHit_ = nullptr;
};

}  // namespace morvane
