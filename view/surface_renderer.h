// The surface in GL: its full mesh, a coarse one for pictures in motion, and how they are drawn.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "geometry/camera.h"
#include "surface/surface_model.h"
#include "view/gl_objects.h"
#include "view/indexed_surface.h"
#include "view/scale_texture.h"
#include "view/shader_program.h"
#include "view/triangle_list.h"

namespace morvane {

/// How a surface is drawn.
struct SurfaceLook {
  bool lit = true;                     ///< shaded; else in raw (brightened) colours
  bool filled = true;                  ///< as triangles; else as points
  glm::vec3 light{0.0F, 0.0F, -1.0F};  ///< the direction in which light falls
};

/// With how many points a surface is drawn.
enum class Detail { kFull, kCoarse };

/// Building and drawing at full detail can be split into slices, so that events are handled between
/// them. All functions need a current GL context.
class SurfaceRenderer {
 public:
  /// Creates the shader program and the buffers.
  void generate();
  [[nodiscard]] bool usable() const { return program_.usable(); }

  /// Frees the full mesh and begins to build that of `model`. Without the heat map `drape` colours
  /// it. If memory cannot hold it, the finest mesh that fits is built instead.
  void beginFull(const SurfaceModel& model, const BitmapDrape* drape);
  /// Builds the next rows, for about 25 ms. Returns whether the mesh is complete. The arguments
  /// must be those of `beginFull`, unchanged.
  bool advanceFull(const SurfaceModel& model, const BitmapDrape* drape);
  /// The full mesh has every n-th point of the surface: 1 unless memory was short.
  [[nodiscard]] std::size_t fullStep() const {
    return substitute_.step() > 0 ? substitute_.step() : 1;
  }
  /// Why the surface cannot be drawn at full detail at all; empty when it can.
  [[nodiscard]] const std::string& trouble() const { return trouble_; }

  /// Builds the coarse mesh at every `step`-th point.
  void buildCoarse(const SurfaceModel& model, const BitmapDrape* drape, std::size_t step);
  /// 0 when there is no coarse mesh.
  [[nodiscard]] std::size_t coarseStep() const { return coarse_.step(); }

  /// Begins to draw the mesh of the last build at `detail`.
  void beginDrawing(Detail detail);
  /// Draws on until the surface is complete, or for `milliseconds`. Returns whether it is complete.
  /// The arguments must not change between the slices.
  bool advanceDrawing(const ViewMatrices& matrices, const glm::vec3& eye, const SurfaceLook& look,
                      double milliseconds);

 private:
  // Triangles or points of a piece of a picture. A piece should take a few milliseconds: short
  // enough to stop after it, and long enough that the number of pieces costs nothing.
  static constexpr std::size_t kFewestInPiece = std::size_t{1} << 15;
  static constexpr std::size_t kMostInPiece = std::size_t{1} << 20;

  struct SyncDeleter {
    void operator()(GLsync sync) const { glDeleteSync(sync); }
  };
  using Sync = std::unique_ptr<std::remove_pointer_t<GLsync>, SyncDeleter>;

  /// Vertices that one kind of GL call draws.
  struct Run {
    enum class Source { kArrays, kCorners, kStrided } source;
    GLenum kind;
    std::size_t count;
    PointRun points{0, 0, 1};  // where the attributes are, of a triangle list drawn as points
  };
  /// How far the picture has been drawn.
  struct Progress {
    Detail detail = Detail::kFull;
    std::size_t run = 0;
    std::size_t first = 0;
  };

  void buildSubstitute(const SurfaceModel& model, const BitmapDrape* drape, std::string reason);
  [[nodiscard]] const ShaderProgram& program(bool filled);
  /// The mesh to draw if it is not the triangle list.
  [[nodiscard]] const IndexedSurface* indexed() const;
  [[nodiscard]] std::vector<Run> runs(bool filled) const;
  void useCoarseColours() const;
  void attach(const Run& run, bool filled) const;
  static void detach();
  void drawPiece(const Run& run);

  ShaderProgram program_;
  ShaderProgram coarseHeightProgram_;
  // Created at first use.
  ShaderProgram coarseProgram_;
  ShaderProgram pointProgram_;
  GlVertexArray vertexArray_;
  TriangleList list_;
  IndexedSurface coarse_;
  // The few points of a coarse surface lie too far apart to blend their colours.
  ScaleTexture coarseColours_;
  bool coarseByHeight_ = false;
  IndexedSurface substitute_;  // for a list that does not fit
  std::string trouble_;
  Progress progress_;
  // A software GL queues primitives until it rasterises them, and the queue for a large surface
  // would be nearly as large as its buffers. So at most this many pieces are in the queue.
  std::array<Sync, 2> drawn_;
  std::size_t next_ = 0;
  std::size_t inPiece_ = kFewestInPiece;
};

}  // namespace morvane
