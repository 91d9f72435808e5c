// The full mesh of a surface in GL: three buffers with six vertices for each cell.
#pragma once

#include <string>

#include "surface/surface_model.h"
#include "view/vertex_buffer.h"

namespace morvane {

/// All functions need a current GL context.
class TriangleList {
 public:
  void generate();

  /// Frees the content and makes room for the mesh of `model`, which `advance` then builds. Returns
  /// an empty text on success, else why there is no room.
  [[nodiscard]] std::string begin(const SurfaceModel& model);
  /// Builds the next rows directly into the buffers: about 25 ms of work. `model` must not
  /// have changed since `begin`. Without the heat map `drape` colours it. Returns an empty text on
  /// success, else why the mesh was lost.
  [[nodiscard]] std::string advance(const SurfaceModel& model, const BitmapDrape* drape);
  /// Whether `advance` must be called again.
  [[nodiscard]] bool unfinished() const { return nextRow_ < rowsToBuild_; }
  /// Frees the content.
  void empty();

  // Cells that can be drawn; 0 until all are built.
  [[nodiscard]] std::size_t columns() const { return columns_; }
  [[nodiscard]] std::size_t rows() const { return rows_; }
  [[nodiscard]] const VertexBuffer& positions() const { return positions_; }
  [[nodiscard]] const VertexBuffer& colours() const { return colours_; }
  [[nodiscard]] const VertexBuffer& normals() const { return normals_; }

 private:
  [[nodiscard]] std::string close(const SurfaceModel& model);

  VertexBuffer positions_;
  VertexBuffer colours_;
  VertexBuffer normals_;
  std::size_t columns_ = 0;
  std::size_t rows_ = 0;
  std::size_t nextRow_ = 0;
  std::size_t rowsToBuild_ = 0;
  double cellsAtOnce_ = 0.0;  // follows the time that building takes
};

}  // namespace morvane
