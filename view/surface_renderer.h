// The surface on the graphics card: three buffers filled once per build, drawn with uniforms only.
#pragma once

#include <string>

#include "geometry/camera.h"
#include "surface/surface_model.h"
#include "view/gl_objects.h"
#include "view/shader_program.h"
#include "view/vertex_buffer.h"

namespace morvane {

/// All of it needs a current GL context.
class SurfaceRenderer {
 public:
  /// Makes the program and the buffers.
  void generate();

  /// Builds the mesh of `model`, coloured by `drape` where no heat map does, straight into the
  /// buffers; what they held is let go first. Empty on success, else what was wrong; then there is
  /// nothing to draw.
  [[nodiscard]] std::string bind(const SurfaceModel& model, const BitmapDrape* drape);

  /// Draws what is bound, as triangles or as points of two pixels. `lit` chooses between shaded and
  /// raw (brightened) colours.
  void draw(const ViewMatrices& matrices, const glm::vec3& eye, bool lit) const;

  [[nodiscard]] bool usable() const { return program_.usable(); }

 private:
  void emptyBuffers();
  [[nodiscard]] std::string fill(const SurfaceModel& model, const BitmapDrape* drape);
  void setUniforms(const ViewMatrices& matrices, const glm::vec3& eye, bool lit) const;

  ShaderProgram program_;
  GlVertexArray vertexArray_;
  VertexBuffer positions_;
  VertexBuffer colours_;
  VertexBuffer normals_;
  GLsizei vertexCount_ = 0;
};

}  // namespace morvane
