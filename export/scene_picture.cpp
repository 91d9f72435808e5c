#include "export/scene_picture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>

#include "base/memory_advice.h"
#include "geometry/drawn_surface.h"
#include "geometry/profile_tool.h"
#include "view/gl_state.h"
#include "view/picture_target.h"

namespace morvane {
namespace {

/// Draws the rows of `picture` from `top` on, `height` of them, in strips: with its samples and
/// depths a large picture would need some gigabytes at once. `paint` draws the strip that begins
/// `firstRow` rows above the lower edge, and returns why it cannot.
std::string drawStrips(RgbImage& picture, int top, int height,
                       const std::function<std::string(int firstRow)>& paint) {
  constexpr int kStripPixels = 1 << 23;  // 256 MiB with four samples
  const int rows = std::clamp(kStripPixels / picture.width, 1, height);
  for (int done = 0; done < height; done += rows) {
    const int count = std::min(rows, height - done);
    const PictureTarget target(picture.width, count);
    if (!target.usable()) return "the graphics memory cannot hold the picture";
    const std::string trouble = paint(height - done - count);
    if (!trouble.empty()) return trouble;
    target.read(picture.row(static_cast<std::size_t>(top + done)));
  }
  return {};
}

}  // namespace

int plotHeightIn(int height) { return static_cast<int>(std::lround(height * (250.0 / 775.0))); }

std::string ScenePainter::draw(ShownSurface& shown, Tools& tools, const PictureSettings& settings,
                               RgbImage& picture) {
  const int width = settings.size.width * settings.factor;
  const int height = settings.size.height * settings.factor;
  const int largest = PictureTarget::largestSide();
  if (width > largest || height > largest) {
    return "a picture here has at most " + std::to_string(largest) + " pixels a side";
  }
  // Twice: it is encoded, too.
  if (!fitsIntoMemory(std::uint64_t{6} * static_cast<std::uint64_t>(width) *
                      static_cast<std::uint64_t>(height))) {
    return "there is not enough memory for the picture";
  }
  picture = RgbImage(width, height);
  Viewport viewport = {.width = settings.size.width,
                       .height = settings.size.height - settings.plotHeight};
  viewport.pixelWidth = width;
  viewport.pixelHeight = viewport.height * settings.factor;
  const std::size_t step = settings.mayLackDetail
                               ? stepForPixels(shown, settings.camera, width, viewport.pixelHeight)
                               : 1;
  const std::string trouble = drawStrips(picture, 0, viewport.pixelHeight, [&](int firstRow) {
    viewport.firstRow = firstRow;
    const Subject subject = {shown, tools, settings.camera, settings.options, viewport};
    const FrameReport report =
        step > 1 ? scene_.drawCoarse(subject, step, false) : scene_.draw(subject);
    return report.trouble.empty() ? report.notShown : report.trouble;
  });
  if (!trouble.empty() || settings.plotHeight == 0) return trouble;
  return drawPlot(shown, tools, settings, picture);
}

std::string ScenePainter::drawPlot(ShownSurface& shown, Tools& tools,
                                   const PictureSettings& settings, RgbImage& picture) {
  if (!plot_.generated()) {
    plot_.generate(scene_.font(), settings.size.width, settings.plotHeight);
    plot_.enterContext();
  }
  tools.profile().setSurface(profileSurface(shown));
  const int height = settings.plotHeight * settings.factor;
  return drawStrips(picture, picture.height - height, height, [&](int firstRow) {
    const GlSwitch noConversion(GL_FRAMEBUFFER_SRGB, false);  // as in the plot's own window
    PlotRenderer::drawNothing();
    glViewport(0, -firstRow, picture.width, height);
    glEnable(GL_MULTISAMPLE);
    plot_.draw(tools.profile(), settings.size.width, settings.plotHeight,
               static_cast<float>(settings.factor), settings.options.onlyTextsThatFit);
    return std::string();
  });
}

}  // namespace morvane
