// Pictures of a surface that are drawn without a window.
#pragma once

#include <string>

#include "export/rgb_image.h"
#include "view/plot_renderer.h"
#include "view/scene.h"

namespace morvane {

/// What a picture shows.
struct PictureSettings {
  int width = 1125;  ///< of the picture at factor 1, as of a window of that size
  int height = 775;
  int factor = 1;  ///< pixels for each pixel of such a window
  Camera camera;
  SceneOptions options;
};

/// Draws pictures of one measurement after another. All functions need the same current GL context.
class ScenePainter {
 public:
  /// `font` is the font of the texts.
  explicit ScenePainter(const std::string& font) : font_(font) { scene_.setFont(font); }

  /// Draws `shown`, and the plot of the section below it while the profile tool of `tools` is on,
  /// as in the main window. Returns an empty text on success, else why there is no picture.
  std::string draw(ShownSurface& shown, Tools& tools, const PictureSettings& settings,
                   RgbImage& picture);

 private:
  std::string font_;
  Scene scene_;
  PlotRenderer plot_;
};

}  // namespace morvane
