#include "ui/profiler.h"

#include "base/paths.h"
#include "ui/gl_mode.h"
#include "view/gl_driver.h"

namespace morvane {

Profiler::Profiler(int x, int y, int w, int h, const char* label, ProfileTool& tool,
                   ShownSurface& shown)
    : GlPane(x, y, w, h, label), tool_(tool), shown_(shown) {
  mode(kGlMode);
  end();
  hide();
}

void Profiler::draw() {
  PlotRenderer::drawNothing();
  if (glGenVertexArrays == nullptr || !shown_.modelLoaded()) return;
  if (!plot_.generated()) plot_.generate(resourcePath(exeFolder, "Fonts", "arial.ttf"), w(), h());
  // Hiding the window destroys its context. Only shared objects remain.
  if (!context_valid()) plot_.enterContext();
  glViewport(0, 0, pixel_w(), pixel_h());
  glEnable(GL_MULTISAMPLE);
  tool_.setSurface(profileSurface(shown_));
  plot_.draw(tool_, w(), h());
  checkGl("profile");
}

}  // namespace morvane
