// The surface on the graphics card: three buffers filled once per build, drawn with uniforms only.
#pragma once

#include <string>

#include "geometry/camera.h"
#include "surface/surface_model.h"
#include "view/gl_objects.h"
#include "view/shader_program.h"
#include "view/vertex_buffer.h"

namespace morvane {

/// How a surface is drawn.
struct SurfaceLook {
  bool lit = true;     ///< shaded, not in raw (brightened) colours
  bool filled = true;  ///< as triangles, not as points
};

/// All of it needs a current GL context.
class SurfaceRenderer {
 public:
  /// Makes the program and the buffers.
  void generate();

  /// Builds the mesh of `model`, coloured by `drape` where no heat map does, straight into the
  /// buffers; what they held is let go first. Empty on success, else what was wrong; then there is
  /// nothing to draw.
  [[nodiscard]] std::string bind(const SurfaceModel& model, const BitmapDrape* drape);

  /// Draws what is bound.
  void draw(const ViewMatrices& matrices, const glm::vec3& eye, const SurfaceLook& look);

  [[nodiscard]] bool usable() const { return program_.usable(); }

 private:
  void emptyBuffers();
  [[nodiscard]] std::string fill(const SurfaceModel& model, const BitmapDrape* drape);
  void drawPoints() const;

  ShaderProgram program_;
  ShaderProgram pointProgram_;  // made when it is first wanted
  GlVertexArray vertexArray_;
  VertexBuffer positions_;
  VertexBuffer colours_;
  VertexBuffer normals_;
  // Cells; none while there is nothing to draw.
  std::size_t columns_ = 0;
  std::size_t rows_ = 0;
};

}  // namespace morvane
