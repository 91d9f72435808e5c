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

/// Holds the pins of the active tools as static boxes. Nothing ever moves in it by itself.
class PickWorld {
 public:
  PickWorld();
  ~PickWorld();
  PickWorld(const PickWorld&) = delete;
  PickWorld& operator=(const PickWorld&) = delete;

  /// Takes the matrices of a frame: rays are cast in the world that these show.
  void setMatrices(const ViewMatrices& matrices);

  /// Adds a pin, which must stay where it is until it is removed.
  void addObject(Pin& pin, ToolKind kind);
  /// Takes all pins of a tool out.
  void removeObjects(ToolKind kind);
  /// Moves the boxes of a tool to where its pins now stand.
  void refresh(ToolKind kind);
  /// Whether any pin of the tool is in the world.
  [[nodiscard]] bool contains(ToolKind kind) const;

  /// The first pin that a ray of `kRayLength` meets, or null. `direction` is of length 1.
  Pin* rayTest(const glm::vec3& origin, const glm::vec3& direction);
  /// What the last ray test returned.
  [[nodiscard]] Pin* lastHit() const { return lastHit_; }

 private:
  struct Bullet;  // keeps the library's headers out of this one
  std::unique_ptr<Bullet> bullet_;
  ViewMatrices matrices_;
  Pin* lastHit_ = nullptr;
};

}  // namespace morvane
