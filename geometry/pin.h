// Pins: upright boxes on the surface that are dragged to move the section and the grid box.
#pragma once

#include <array>
#include <glm/gtc/quaternion.hpp>
#include <glm/mat4x4.hpp>
#include <glm/vec3.hpp>
#include <glm/vec4.hpp>

#include "geometry/pin_motion.h"

namespace morvane {

/// One pin. The picking world holds its address, so it must not move in memory while it can be
/// picked.
struct Pin {
  glm::vec3 position{0.0F};  ///< of its centre, model units
  glm::quat rotation = glm::identity<glm::quat>();
  glm::vec3 halfExtents{1.0F};
  glm::vec4 colour{0.0F, 0.0F, 0.0F, 1.0F};  ///< RGBA
};

/// The two pins of one tool.
using Pins = std::array<Pin, 2>;

/// Reads and sets the positions of both pins.
PinPair placesOf(const Pins& pins);
void placePins(Pins& pins, const PinPair& places);

/// The model matrix of a pin's box (a cube of half-extents 1), after `overlay`.
glm::mat4 pinMatrix(const Pin& pin, const glm::mat4& overlay);

}  // namespace morvane
