// Draws lines along the surface: the profile line and the outline of a region.
#pragma once

#include <glm/vec3.hpp>
#include <span>
#include <vector>

#include "geometry/camera.h"
#include "geometry/surface_line.h"
#include "view/gl_objects.h"
#include "view/shader_program.h"

namespace morvane {

/// All functions need a current GL context.
class SurfaceLineRenderer {
 public:
  /// Creates the shader program and the buffers.
  void generate();
  [[nodiscard]] bool generated() const { return program_.name() != 0; }

  /// Draws `line`: points in pin space, with a z of NaN in gaps. It is drawn without depth test, so
  /// that no hill hides it. It is black with a white rim, which is visible on every colour.
  void draw(const ViewMatrices& matrices, std::span<const glm::vec3> line);

 private:
  void drawThin(const LinePieces& pieces, const glm::mat4& toClip) const;
  void drawThick(const LinePieces& pieces, const glm::mat4& toClip, glm::vec2 size,
                 float pixelRatio) const;
  template <typename Point>
  void upload(const std::vector<Point>& points, const glm::mat4& toClip) const;

  ShaderProgram program_;
  GlVertexArray vertexArray_;
  GlBuffer vertices_;
};

}  // namespace morvane
