#include "view/scene.h"

#include <algorithm>
#include <utility>

#include "base/debug_log.h"
#include "base/paths.h"
#include "geometry/drawn_surface.h"
#include "view/gl_driver.h"
#include "view/gl_state.h"
#include "view/stopwatch.h"

namespace morvane {
namespace {

constexpr glm::vec3 kTextColour{0.0F, 0.0F, 0.0F};
constexpr glm::vec3 kSky{0.65F, 0.86F, 1.0F};

constexpr const char* kLogFile = "GLWindow.log";

}  // namespace

void Scene::drawNothing() {
  glClearColor(0.0F, 0.0F, 0.0F, 0.0F);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

FrameReport Scene::draw(ShownSurface& shown, Tools& tools, const Camera& camera,
                        const SceneOptions& options, const Viewport& viewport) {
  FrameReport report;
  const Stopwatch frame;
  if (needsBuffers_) generateBuffers(report);
  if (!modelBound(shown)) bindModel(shown, report);
  const ViewMatrices matrices = presentMatrices(shown, camera, viewport.width, viewport.height);
  drawSurface(matrices, camera, options, viewport);
  if (options.axesVisible) axes_.draw(matrices, axesRange(shown));
  frame.print("Drawing Time: ");
  if (std::exchange(keyBuffersNeeded_, false)) key_.generateBuffers();
  const bool keyShown = options.keyVisible && shown.measured().heatMap;
  if (keyShown && std::exchange(keyDirty_, false)) key_.rebuild();
  frame.print("Drawing Time for HM Key: ");
  tools.draw(shown, matrices);
  // Drawn after the tools, so that pins do not hide numbers or the key.
  const auto [width, height] = std::pair{viewport.width, viewport.height};
  text_.setPixels(width, height);
  const TextWidth textWidth = [this](std::string_view text, float scale) {
    return text_.widthInSpace(text, scale);
  };
  const HeatMapScale scale = shown.measured().colourScale();
  const KeyColumn column = keyColumn(scale.upper(), scale.lower(), textWidth);
  if (options.axesVisible) {
    std::vector<ScreenQuad> taken;
    if (keyShown) taken = roomOf(column, textWidth, text_.heightInSpace(), width, height);
    Axes::drawLabels(matrices, axesRange(shown), width, height, std::move(taken), text_);
  }
  if (keyShown) drawKey(shown, column);
  drawAlterations(shown);
  checkGl("surface");
  return report;
}

void Scene::generateBuffers(FrameReport& report) {
  const Stopwatch watch;
  DebugLog::write(kLogFile, "GENERATING BUFFERS......\n");
  surface_.generate();
  key_.generateProgram();
  if (!surface_.usable() || !key_.usable()) {
    report.trouble = std::string("the shaders do not compile on ") +
                     reinterpret_cast<const char*>(glGetString(GL_RENDERER));
  }
  text_.initialise(fontPath_, kTextSpaceWidth, kTextSpaceHeight, kSky);
  watch.print("Buffer Generation Time: ");
  needsBuffers_ = false;
  axes_.generate();
}

void Scene::bindModel(ShownSurface& shown, FrameReport& report) {
  const Stopwatch watch;
  const SurfaceModel& model = shown.measured();
  const std::optional<BitmapDrape> drape = shown.drape();
  report.notShown = surface_.bind(model, drape ? &*drape : nullptr);
  report.meshBuilt = true;
  boundRevision_ = shown.meshRevision();
  keyDirty_ = true;
  watch.print("Model Binding Time: ");
}

void Scene::drawSurface(const ViewMatrices& matrices, const Camera& camera,
                        const SceneOptions& options, const Viewport& viewport) {
  glClearColor(kSky.r, kSky.g, kSky.b, 0.0F);
  glPointSize(2.0F);
  glViewport(0, 0, viewport.pixelWidth, viewport.pixelHeight);
  glEnable(GL_MULTISAMPLE);
  glEnable(GL_FRAMEBUFFER_SRGB);
  glEnable(GL_DEPTH_TEST);
  glDepthFunc(GL_LESS);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  surface_.draw(matrices, camera.eye, {options.lightingOn, options.filledPolygons});
}

void Scene::drawKey(ShownSurface& shown, const KeyColumn& column) {
  {
    // The key is in front of the surface at any zoom.
    const GlSwitch noDepth(GL_DEPTH_TEST, false);
    key_.draw();
  }
  for (const KeyNumber& number : column.numbers) {
    text_.draw(number.text, number.x, number.y, column.scale, kTextColour);
  }
  text_.draw(fileNameOf(shown.measurement().path), 20.0F, 750.0F, 0.3F, kTextColour);
}

void Scene::drawAlterations(ShownSurface& shown) {
  const std::string words = shown.alterations();
  if (words.empty()) return;
  constexpr float kLeft = 20.0F;
  constexpr float kScale = 0.3F;
  constexpr glm::vec3 kQuiet{0.06F, 0.06F, 0.06F};
  const float room = kTextSpaceWidth - 2 * kLeft;
  const float scale = kScale * std::min(1.0F, room / text_.widthInSpace(words, kScale));
  text_.draw(words, kLeft, 730.0F, scale, kQuiet);
}

}  // namespace morvane
