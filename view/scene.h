// Draws the picture of a surface into the current context.
#pragma once

#include <string>

#include "geometry/camera.h"
#include "geometry/key_column.h"
#include "surface/shown_surface.h"
#include "view/axes.h"
#include "view/key_renderer.h"
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
};

/// The size of the picture.
struct Viewport {
  int width = 0;  ///< in the units of mouse positions
  int height = 0;
  int pixelWidth = 0;
  int pixelHeight = 0;
};

/// The outcome of a frame.
struct FrameReport {
  bool meshBuilt = false;
  std::string notShown;  ///< why a new mesh cannot be drawn
  std::string trouble;   ///< why nothing can be drawn; reported once
};

/// Knows no window. Makes GL calls in `draw` only.
class Scene {
 public:
  /// The font of the texts.
  void setFont(const std::string& path) { fontPath_ = path; }

  /// Draws one frame of `shown` with `tools` and logs its timing. If the mesh in the buffers is out
  /// of date it is rebuilt first.
  FrameReport draw(ShownSurface& shown, Tools& tools, const Camera& camera,
                   const SceneOptions& options, const Viewport& viewport);
  /// Draws the background of an empty view.
  static void drawNothing();

 private:
  void generateBuffers(FrameReport& report);
  void bindModel(ShownSurface& shown, FrameReport& report);
  [[nodiscard]] bool modelBound(const ShownSurface& shown) const {
    return boundRevision_ == shown.meshRevision();
  }
  void drawSurface(const ViewMatrices& matrices, const Camera& camera, const SceneOptions& options,
                   const Viewport& viewport);
  void drawKey(ShownSurface& shown, const KeyColumn& column);
  void drawAlterations(ShownSurface& shown);

  std::string fontPath_;
  SurfaceRenderer surface_;
  TextRenderer text_;
  Axes axes_;
  KeyRenderer key_;
  std::uint64_t boundRevision_ = 0;  // of the mesh in the buffers
  bool needsBuffers_ = true;         // programs and buffers must be made
  bool keyBuffersNeeded_ = true;
  bool keyDirty_ = true;  // the key must be rebuilt
};

}  // namespace morvane
