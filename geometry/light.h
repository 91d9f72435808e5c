// The direction of the light that shades the surface.
#pragma once

#include <glm/gtc/quaternion.hpp>
#include <glm/vec3.hpp>
#include <optional>

namespace morvane {

/// A lamp far away that turns with the surface, in degrees: its azimuth runs from the x axis
/// towards the y axis, its elevation from the surface's plane upwards.
struct Lamp {
  float azimuth = 135.0F;
  float elevation = 30.0F;
  bool operator==(const Lamp&) const = default;
};

/// From the middle of the surface to the lamp: a vector of length 1.
glm::vec3 directionTo(const Lamp& lamp);
/// The lamp in that direction, of any length but zero; below the surface's plane it counts as in
/// it.
Lamp lampTowards(const glm::vec3& direction);

/// The direction in which light falls on a surface rotated by `rotation`: from `lamp`, or without
/// one along the view.
glm::vec3 lightDirection(const std::optional<Lamp>& lamp, const glm::quat& rotation);

}  // namespace morvane
