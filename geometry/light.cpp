#include "geometry/light.h"

#include <algorithm>
#include <cmath>
#include <glm/trigonometric.hpp>

namespace morvane {

glm::vec3 directionTo(const Lamp& lamp) {
  const float azimuth = glm::radians(lamp.azimuth);
  const float elevation = glm::radians(lamp.elevation);
  return {std::cos(elevation) * std::cos(azimuth), std::cos(elevation) * std::sin(azimuth),
          std::sin(elevation)};
}

Lamp lampTowards(const glm::vec3& direction) {
  const float across = std::hypot(direction.x, direction.y);
  const float azimuth = glm::degrees(std::atan2(direction.y, direction.x));
  return {azimuth < 0.0F ? azimuth + 360.0F : azimuth,
          glm::degrees(std::atan2(std::max(direction.z, 0.0F), across))};
}

glm::vec3 lightDirection(const std::optional<Lamp>& lamp, const glm::quat& rotation) {
  return lamp ? -(rotation * directionTo(*lamp)) : glm::vec3(0.0F, 0.0F, -1.0F);
}

}  // namespace morvane
