#include "view/camera.h"

#include <algorithm>
#include <cmath>
#include <glm/gtc/matrix_transform.hpp>

namespace morvane {
namespace {

constexpr float kFieldOfView = 45.0F;  // degrees, vertical
constexpr float kNear = 0.05F;
constexpr float kFar = 100.0F;
constexpr float kPointsPerUnit = 1000.0F;

}  // namespace

ViewMatrices viewMatrices(const Camera& camera, int width, int height, std::size_t gridWidth,
                          std::size_t gridHeight, float zScale) {
  ViewMatrices matrices;
  const float aspect =
      static_cast<float>(std::max(width, 1)) / static_cast<float>(std::max(height, 1));
  matrices.projection = glm::perspective(glm::radians(kFieldOfView), aspect, kNear, kFar);
  matrices.view = glm::lookAt(camera.eye, camera.target, camera.up);

  const glm::mat4 turn = glm::mat4_cast(camera.rotation);
  const glm::mat4 pan = glm::translate(glm::mat4(1.0F), glm::vec3(camera.pan, 0.0F));
  const glm::vec3 centre(static_cast<float>(gridWidth) / kPointsPerUnit / 2.0F,
                         static_cast<float>(gridHeight) / kPointsPerUnit / 2.0F, 0.0F);
  const float heightScale = (std::isfinite(zScale) ? zScale : 1.0F) * kHeightToModel;
  matrices.overlay = pan * turn * glm::translate(glm::mat4(1.0F), -centre);
  matrices.model = glm::scale(matrices.overlay, glm::vec3(1.0F, 1.0F, heightScale));
  matrices.normal = glm::mat3(turn);
  matrices.normal[2] /= heightScale;
  return matrices;
}

}  // namespace morvane
