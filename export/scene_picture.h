// Pictures of a surface that are drawn without a window.
#pragma once

#include <string>

#include "export/rgb_image.h"
#include "view/plot_renderer.h"
#include "view/scene.h"

namespace morvane {

/// What a picture shows.
struct PictureSettings {
  PictureSize size;    ///< of the picture at factor 1, as of a window of that size
  int plotHeight = 0;  ///< of the plot of the section at the lower edge; 0 without one
  int factor = 1;      ///< pixels for each pixel of such a window
  Camera camera;
  bool mayLackDetail = false;  ///< fewer points are drawn where there is one for each pixel
  SceneOptions options;
};

/// The height of the plot in a picture of `height` pixels: as much of it as in the main window.
int plotHeightIn(int height);

/// Draws pictures of one measurement after another. All functions need the same current GL context.
class ScenePainter {
 public:
  /// `scene` draws the surface with its buffers and its font, and must outlive this object.
  explicit ScenePainter(Scene& scene) : scene_(scene) {}

  /// Draws `shown` and, below it, the plot of the section of `tools`, as in the main window. Lines,
  /// points and texts have the proportions of the window at any factor. Returns an empty text on
  /// success, else why there is no picture.
  std::string draw(ShownSurface& shown, Tools& tools, const PictureSettings& settings,
                   RgbImage& picture);

 private:
  std::string drawPlot(ShownSurface& shown, Tools& tools, const PictureSettings& settings,
                       RgbImage& picture);

  Scene& scene_;
  PlotRenderer plot_;
};

}  // namespace morvane
