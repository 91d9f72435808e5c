#include "export/scene_picture.h"

#include <cmath>

#include "geometry/profile_tool.h"
#include "view/gl_state.h"
#include "view/picture_target.h"

namespace morvane {
namespace {

/// The part of the height that the plot of a section takes: that of the main window.
constexpr double kPlotPart = 250.0 / 775.0;

}  // namespace

std::string ScenePainter::draw(ShownSurface& shown, Tools& tools, const PictureSettings& settings,
                               RgbImage& picture) {
  const int width = settings.width * settings.factor;
  const int height = settings.height * settings.factor;
  const int largest = PictureTarget::largestSide();
  if (width > largest || height > largest) {
    return "a picture here has at most " + std::to_string(largest) + " pixels a side";
  }
  const int plotHeight =
      tools.profileMode() ? static_cast<int>(std::lround(settings.height * kPlotPart)) : 0;
  const int viewHeight = settings.height - plotHeight;
  picture = RgbImage(width, height);
  {
    const PictureTarget target(width, viewHeight * settings.factor);
    if (!target.usable()) return "the graphics memory cannot hold the picture";
    const Viewport viewport = {settings.width, viewHeight, width, viewHeight * settings.factor};
    const FrameReport report =
        scene_.draw({shown, tools, settings.camera, settings.options, viewport});
    if (!report.trouble.empty()) return report.trouble;
    if (!report.notShown.empty()) return report.notShown;
    target.read(picture.pixels.data());
  }
  if (plotHeight == 0) return {};
  const PictureTarget target(width, plotHeight * settings.factor);
  if (!target.usable()) return "the graphics memory cannot hold the picture";
  const GlSwitch noConversion(GL_FRAMEBUFFER_SRGB, false);  // as in the plot's own window
  PlotRenderer::drawNothing();
  if (!plot_.generated()) {
    plot_.generate(font_, settings.width, plotHeight);
    plot_.enterContext();
  }
  glViewport(0, 0, width, plotHeight * settings.factor);
  glEnable(GL_MULTISAMPLE);
  tools.profile().setSurface(profileSurface(shown));
  plot_.draw(tools.profile(), settings.width, plotHeight);
  target.read(picture.row(static_cast<std::size_t>(viewHeight) *
                          static_cast<std::size_t>(settings.factor)));
  return {};
}

}  // namespace morvane
