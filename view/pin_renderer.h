// Drawing pins and the box between them.
#pragma once

#include <glm/vec4.hpp>

#include "geometry/camera.h"
#include "geometry/pin.h"
#include "view/gl_objects.h"
#include "view/shader_program.h"

namespace morvane {

/// Draws pins and translucent boxes. All functions need a current GL context.
class PinRenderer {
 public:
  /// Creates the shader program and the unit cube. Call once.
  void generate();
  [[nodiscard]] bool generated() const { return program_.name() != 0; }

  /// Draws a pin in its colour with white edges.
  void drawPin(const ViewMatrices& matrices, const Pin& pin) const;
  /// Draws the front faces of `box`, blended with what is behind them.
  void drawTranslucent(const ViewMatrices& matrices, const Pin& box) const;

 private:
  void begin(const ViewMatrices& matrices, const Pin& box) const;
  void setColour(const glm::vec4& colour) const;

  ShaderProgram program_;
  GlVertexArray vertexArray_;
  GlBuffer positionBuffer_;
  GlBuffer colourBuffer_;
  GlVertexArray edgeArray_;
  GlBuffer edgeBuffer_;
};

}  // namespace morvane
