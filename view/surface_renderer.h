// The surface in GL: three buffers, filled once per build. A frame only sets uniforms and draws.
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
  bool lit = true;     ///< shaded; else in raw (brightened) colours
  bool filled = true;  ///< as triangles; else as points
};

/// All functions need a current GL context.
class SurfaceRenderer {
 public:
  /// Creates the shader program and the buffers.
  void generate();

  /// Builds the mesh of `model` directly into the buffers, after freeing their old content. Without
  /// the heat map `drape` colours it. Returns an empty text on success, else the error message;
  /// then nothing is drawn.
  [[nodiscard]] std::string bind(const SurfaceModel& model, const BitmapDrape* drape);

  /// Draws the mesh of the last `bind`.
  void draw(const ViewMatrices& matrices, const glm::vec3& eye, const SurfaceLook& look);

  [[nodiscard]] bool usable() const { return program_.usable(); }

 private:
  void emptyBuffers();
  [[nodiscard]] std::string fill(const SurfaceModel& model, const BitmapDrape* drape);
  void drawPoints() const;

  ShaderProgram program_;
  ShaderProgram pointProgram_;  // created at first use
  GlVertexArray vertexArray_;
  VertexBuffer positions_;
  VertexBuffer colours_;
  VertexBuffer normals_;
  // Cells; 0 while there is nothing to draw.
  std::size_t columns_ = 0;
  std::size_t rows_ = 0;
};

}  // namespace morvane
