// A surface with fewer points in GL: one vertex for each point, and the corners of the triangles.
#pragma once

#include "surface/surface_model.h"
#include "view/gl_objects.h"

namespace morvane {

/// All functions need a current GL context.
class IndexedSurface {
 public:
  /// Builds `model` at every `step`-th row and column in place of the old content. Without the heat
  /// map `drape` colours it. False, and empty, when there is not enough memory.
  [[nodiscard]] bool build(const SurfaceModel& model, const BitmapDrape* drape, std::size_t step);
  /// Frees the content.
  void empty();

  /// The step of the last `build`; 0 if there is none.
  [[nodiscard]] std::size_t step() const { return step_; }
  [[nodiscard]] std::size_t vertices() const { return vertices_; }
  /// Three for each triangle, as 32-bit indices of vertices.
  [[nodiscard]] std::size_t corners() const { return corners_; }

  // Buffers of three floats a vertex, and of the corners.
  [[nodiscard]] GLuint positions() const { return buffers_[0].name(); }
  [[nodiscard]] GLuint colours() const { return buffers_[1].name(); }
  [[nodiscard]] GLuint normals() const { return buffers_[2].name(); }
  [[nodiscard]] GLuint cornerBuffer() const { return buffers_[3].name(); }

 private:
  std::array<GlBuffer, 4> buffers_;
  std::size_t step_ = 0;
  std::size_t vertices_ = 0;
  std::size_t corners_ = 0;
};

}  // namespace morvane
