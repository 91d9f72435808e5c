// Draws the picture of a surface into the current context.
#pragma once

#include <optional>
#include <string>

#include "geometry/camera.h"
#include "geometry/key_column.h"
#include "geometry/light.h"
#include "surface/shown_surface.h"
#include "view/axes.h"
#include "view/key_renderer.h"
#include "view/stopwatch.h"
#include "view/surface_renderer.h"
#include "view/text_renderer.h"
#include "view/tools.h"

namespace morvane {

/// Which parts of the picture are switched on.
struct SceneOptions {
  bool axesVisible = true;     ///< axes with their labels
  bool keyVisible = true;      ///< the colour key, shown under the heat map only
  bool filledPolygons = true;  ///< the surface as triangles; else as points
  bool lightingOn = true;      ///< shaded colours; else raw ones
  std::optional<Lamp> lamp;    ///< in place of the light along the view
  /// Leaves texts out that lie on others or reach out of the picture, and the key if it takes too
  /// much of it.
  bool onlyTextsThatFit = false;
};

/// The size of the picture, or of the one that a strip of rows belongs to.
struct Viewport {
  int width = 0;  ///< in the units of mouse positions
  int height = 0;
  int pixelWidth = 0;
  int pixelHeight = 0;
  int firstRow = 0;  ///< of the strip that is drawn, from the bottom of the picture

  [[nodiscard]] float pixelRatio() const {
    return width > 0 ? static_cast<float>(pixelWidth) / static_cast<float>(width) : 1.0F;
  }
};

/// What a frame shows.
struct Subject {
  ShownSurface& shown;
  Tools& tools;
  const Camera& camera;
  SceneOptions options;
  Viewport viewport;
};

/// The outcome of a frame.
struct FrameReport {
  bool meshBuilt = false;
  std::string notShown;  ///< why a new mesh cannot be drawn
  std::string trouble;   ///< why nothing can be drawn; reported once
};

/// Knows no window. Makes GL calls in the functions that draw only. Each frame logs its timing.
class Scene {
 public:
  /// The font of the texts.
  void setFont(const std::string& path) { fontPath_ = path; }
  [[nodiscard]] const std::string& font() const { return fontPath_; }

  /// Draws a whole frame. If the full mesh in the buffers is out of date it is rebuilt first.
  FrameReport draw(const Subject& subject);

  /// Draws a frame of every `step`-th point of the surface. All else is drawn as in a whole frame.
  /// If `announced`, the line below the file's name says "shown at every 3rd point until all are
  /// drawn".
  FrameReport drawCoarse(const Subject& subject, std::size_t step, bool announced);
  /// Whether `drawCoarse` must first build the mesh.
  [[nodiscard]] bool coarseMeshNeeded(const ShownSurface& shown, std::size_t step) const;

  /// Begins a whole frame that `advance` draws in slices. Between slices only other windows may be
  /// drawn.
  void begin(const Subject& subject);
  /// Builds the next rows (about 25 ms), or draws on for about `milliseconds`. Returns whether the
  /// frame is complete. `subject` must be that of `begin`, and what it shows must not have changed.
  bool advance(const Subject& subject, double milliseconds);
  /// Whether a whole frame must first build the mesh, or the one begun still builds it.
  [[nodiscard]] bool fullMeshNeeded(const ShownSurface& shown) const;
  /// The full mesh has every n-th point of the surface: 1, unless it is built and memory was short.
  [[nodiscard]] std::size_t fullStep(const ShownSurface& shown) const {
    return fullMeshNeeded(shown) ? 1 : surface_.fullStep();
  }
  /// The outcome of the frame that `advance` completed.
  [[nodiscard]] const FrameReport& report() const { return frame_.report; }

  /// Draws the background of an empty view.
  static void drawNothing();

 private:
  /// A frame being drawn.
  struct Frame {
    Stopwatch watch;
    ViewMatrices matrices;
    glm::vec3 eye;
    SurfaceLook look;
    FrameReport report;
    bool announced = false;  // that it is coarse
    bool building = false;   // the full mesh
    bool cleared = false;    // the drawing has begun
  };

  void start(const Subject& subject);
  void generateBuffers(FrameReport& report);
  void endBuilding(const Subject& subject);
  void clear(const Viewport& viewport);
  void drawRest(const Subject& subject);
  void drawTexts(const Subject& subject);
  void drawKey(const KeyColumn& column);
  [[nodiscard]] std::string detailWords(const ShownSurface& shown) const;
  [[nodiscard]] std::string alterationWords(ShownSurface& shown) const;

  std::string fontPath_;
  SurfaceRenderer surface_;
  TextRenderer text_;
  Axes axes_;
  KeyRenderer key_;
  Frame frame_;
  Stopwatch binding_;
  std::uint64_t fullRevision_ = 0;    // of the full mesh in the buffers
  std::uint64_t begunRevision_ = 0;   // of the full mesh whose building has begun
  std::uint64_t coarseRevision_ = 0;  // of the coarse one
  std::uint64_t keyRevision_ = 0;     // of the mesh that the key was built for
  bool meshBuilt_ = false;            // and not yet reported
  bool needsBuffers_ = true;          // programs and buffers must be made
  bool keyBuffersNeeded_ = true;
};

}  // namespace morvane
