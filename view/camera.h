// The camera of the 3D view as a plain value: where the eye stands and how the model lies.
#pragma once

#include <glm/gtc/quaternion.hpp>
#include <glm/mat4x4.hpp>
#include <glm/vec2.hpp>
#include <glm/vec3.hpp>

namespace morvane {

/// Height units to model units at a z-scale of 1; deliberate, as 1000 grid points span one unit.
inline constexpr float kHeightToModel = 0.000027F;

/// A fixed eye on the z axis looks at the origin; the model is turned and shifted, not the eye.
struct Camera {
  float distance = 3.0F;  ///< of the eye from the origin
  glm::vec3 eye{0.0F, 0.0F, 3.0F};
  glm::vec3 target{0.0F, 0.0F, 0.0F};
  glm::vec3 up{0.0F, 1.0F, 0.0F};
  glm::vec2 pan{0.0F, 0.0F};                        ///< shift of the model, model units
  glm::quat rotation = glm::identity<glm::quat>();  ///< turn of the model
};

/// The matrices of one frame.
struct ViewMatrices {
  glm::mat4 projection{1.0F};
  glm::mat4 view{1.0F};
  glm::mat4 model{1.0F};    ///< scales heights, centres, turns, pans
  glm::mat4 overlay{1.0F};  ///< the same without the height scale, for pins, grid and profile
  glm::mat3 normal{1.0F};   ///< transposed inverse of the model's 3 × 3 part
};

/// The matrices for a window of `width` × `height` pixels and a grid of `gridWidth` × `gridHeight`
/// points whose heights are exaggerated by `zScale`. A scale that is not finite counts as 1.
ViewMatrices viewMatrices(const Camera& camera, int width, int height, std::size_t gridWidth,
                          std::size_t gridHeight, float zScale);

}  // namespace morvane
