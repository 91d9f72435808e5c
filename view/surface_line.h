// Draws lines that follow the surface: the profile line, and the outline of a region.
#pragma once

#include <glm/vec3.hpp>
#include <span>

#include "geometry/camera.h"
#include "view/gl_objects.h"
#include "view/shader_program.h"

namespace morvane {

/// All of it needs a current GL context.
class SurfaceLineRenderer {
 public:
  /// Makes program and buffers.
  void generate();
  [[nodiscard]] bool generated() const { return program_.name() != 0; }

  /// Draws `line`, points in the space of the pins with a z that is NaN in gaps, over everything
  /// else, so that no hill hides it: black with a white rim, which stands out on every colour.
  void draw(const ViewMatrices& matrices, std::span<const glm::vec3> line);

 private:
  ShaderProgram program_;
  GlVertexArray vertexArray_;
  GlBuffer vertices_;
};

}  // namespace morvane
