#include "geometry/pin.h"

#include <glm/gtc/matrix_transform.hpp>

namespace morvane {

PinPair placesOf(const Pins& pins) { return {pins[0].position, pins[1].position}; }

void placePins(Pins& pins, const PinPair& places) {
  pins[0].position = places.a;
  pins[1].position = places.b;
}

glm::mat4 pinMatrix(const Pin& pin, const glm::mat4& overlay) {
  return glm::translate(overlay, pin.position) * glm::mat4_cast(pin.rotation);
}

}  // namespace morvane
