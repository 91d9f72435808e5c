#include "view/scene.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "base/debug_log.h"
#include "base/paths.h"
#include "geometry/corner_texts.h"
#include "geometry/drawn_surface.h"
#include "view/gl_driver.h"
#include "view/gl_state.h"

namespace morvane {
namespace {

constexpr glm::vec3 kTextColour{0.0F, 0.0F, 0.0F};
constexpr glm::vec3 kQuietColour{0.06F, 0.06F, 0.06F};
constexpr glm::vec3 kSky{0.65F, 0.86F, 1.0F};

constexpr const char* kLogFile = "GLWindow.log";

std::string ordinal(std::size_t number) {
  const std::size_t ones = number % 10;
  const bool teens = number / 10 % 10 == 1;
  const char* ending = "th";
  if (!teens && ones == 1) ending = "st";
  if (!teens && ones == 2) ending = "nd";
  if (!teens && ones == 3) ending = "rd";
  return std::to_string(number) + ending;
}

}  // namespace

void Scene::drawNothing() {
  glClearColor(0.0F, 0.0F, 0.0F, 0.0F);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

FrameReport Scene::draw(const Subject& subject) {
  begin(subject);
  while (!advance(subject, std::numeric_limits<double>::infinity())) {
  }
  return frame_.report;
}

bool Scene::coarseMeshNeeded(const ShownSurface& shown, std::size_t step) const {
  return coarseRevision_ != shown.meshRevision() || surface_.coarseStep() != step;
}

bool Scene::fullMeshNeeded(const ShownSurface& shown) const {
  return fullRevision_ != shown.meshRevision();
}

FrameReport Scene::drawCoarse(const Subject& subject, std::size_t step, bool announced) {
  start(subject);
  if (coarseMeshNeeded(subject.shown, step)) {
    surface_.buildCoarse(subject.shown.measured(), subject.shown.drape(), step);
    coarseRevision_ = subject.shown.meshRevision();
  }
  clear(subject.viewport);
  frame_.announced = announced;
  frame_.look.filled = true;  // between so few points there would be gaps
  surface_.beginDrawing(Detail::kCoarse);
  surface_.advanceDrawing(frame_.matrices, frame_.eye, frame_.look,
                          std::numeric_limits<double>::infinity());
  drawRest(subject);
  return frame_.report;
}

void Scene::begin(const Subject& subject) {
  start(subject);
  if (!fullMeshNeeded(subject.shown)) return;
  frame_.building = true;
  // What an abandoned frame has built is kept.
  const std::uint64_t revision = subject.shown.meshRevision();
  if (std::exchange(begunRevision_, revision) == revision) return;
  binding_ = Stopwatch();
  surface_.beginFull(subject.shown.measured(), subject.shown.drape());
}

bool Scene::advance(const Subject& subject, double milliseconds) {
  if (frame_.building) {
    if (surface_.advanceFull(subject.shown.measured(), subject.shown.drape())) endBuilding(subject);
    return false;
  }
  if (!std::exchange(frame_.cleared, true)) {
    clear(subject.viewport);
    surface_.beginDrawing(Detail::kFull);
  }
  if (!surface_.advanceDrawing(frame_.matrices, frame_.eye, frame_.look, milliseconds)) {
    return false;
  }
  drawRest(subject);
  return true;
}

void Scene::start(const Subject& subject) {
  frame_ = {};
  if (needsBuffers_) generateBuffers(frame_.report);
  frame_.matrices = currentMatrices(subject.shown, subject.camera, subject.viewport.width,
                                    subject.viewport.height);
  frame_.matrices.pixelRatio = subject.viewport.pixelRatio();
  frame_.eye = subject.camera.eye;
  frame_.look = {subject.options.lightingOn, subject.options.filledPolygons,
                 lightDirection(subject.options.lamp, subject.camera.rotation)};
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

void Scene::endBuilding(const Subject& subject) {
  frame_.building = false;
  meshBuilt_ = true;
  fullRevision_ = subject.shown.meshRevision();
  binding_.print("Model Binding Time: ");
}

void Scene::clear(const Viewport& viewport) {
  glClearColor(kSky.r, kSky.g, kSky.b, 0.0F);
  glPointSize(2.0F * viewport.pixelRatio());
  glViewport(0, -viewport.firstRow, viewport.pixelWidth, viewport.pixelHeight);
  glEnable(GL_MULTISAMPLE);
  glEnable(GL_FRAMEBUFFER_SRGB);
  glEnable(GL_DEPTH_TEST);
  glDepthFunc(GL_LESS);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

/// Draws all but the surface.
void Scene::drawRest(const Subject& subject) {
  auto& [shown, tools, camera, options, viewport] = subject;
  const ViewMatrices& matrices = frame_.matrices;
  if (options.axesVisible) axes_.draw(matrices, axesRange(shown));
  frame_.watch.print("Drawing Time: ");
  if (std::exchange(keyBuffersNeeded_, false)) key_.generateBuffers();
  const bool keyShown = options.keyVisible && shown.measured().heatMap;
  if (keyShown && std::exchange(keyRevision_, shown.meshRevision()) != shown.meshRevision()) {
    key_.rebuild(shown.measured().colourScale().map());
  }
  frame_.watch.print("Drawing Time for HM Key: ");
  tools.draw(shown, matrices);
  drawTexts(subject);
  // The frame that built the mesh may have been abandoned.
  frame_.report.meshBuilt = std::exchange(meshBuilt_, false);
  if (frame_.report.meshBuilt) frame_.report.notShown = surface_.trouble();
  checkGl("surface");
}

/// Draws the key and all texts. They are drawn after the tools, so that pins do not hide them.
void Scene::drawTexts(const Subject& subject) {
  auto& [shown, tools, camera, options, viewport] = subject;
  const auto [width, height] = std::pair{viewport.width, viewport.height};
  text_.setPixels(width, height, viewport.pixelRatio());
  const TextWidth textWidth = [this](std::string_view text, float scale) {
    return text_.widthInSpace(text, scale);
  };
  const float textHeight = text_.heightInSpace();
  const HeatMapScale scale = shown.measured().colourScale();
  const bool keyWanted = options.keyVisible && shown.measured().heatMap;
  const KeyColumn column = keyColumn(scale, textWidth);
  std::vector<ScreenQuad> taken;
  if (keyWanted) taken = keyArea(column, textWidth, textHeight, width, height);
  const bool keyShown = keyWanted && (!options.onlyTextsThatFit || keyFits(taken, width, height));
  if (!keyShown) taken.clear();
  const std::vector<CornerText> corner =
      cornerTexts(keyWanted ? fileNameOf(shown.measurement().path) : "", alterationWords(shown),
                  textWidth, textHeight, options.onlyTextsThatFit);
  if (options.onlyTextsThatFit) {
    const auto area = cornerArea(corner, textWidth, textHeight, width, height);
    taken.insert(taken.end(), area.begin(), area.end());
  }
  if (options.axesVisible) {
    Axes::drawLabels(frame_.matrices, axesRange(shown), width, height, std::move(taken),
                     options.onlyTextsThatFit, text_);
  }
  if (keyShown) drawKey(column);
  for (const auto& [text, y, size, quiet] : corner) {
    text_.draw(text, kCornerLeft, y, size, quiet ? kQuietColour : kTextColour);
  }
}

void Scene::drawKey(const KeyColumn& column) {
  {
    // The key is in front of the surface at any zoom.
    const GlSwitch noDepth(GL_DEPTH_TEST, false);
    key_.draw();
  }
  for (const KeyNumber& number : column.numbers) {
    text_.draw(number.text, number.x, number.y, column.scale, kTextColour);
  }
}

/// Which points are shown; empty for all.
std::string Scene::detailWords(const ShownSurface& shown) const {
  const auto every = [](std::size_t step) { return "shown at every " + ordinal(step) + " point"; };
  if (const std::size_t step = fullStep(shown); step > 1) return every(step);
  if (frame_.announced) return every(surface_.coarseStep()) + " until all are drawn";
  return "";
}

/// How the picture differs from the measurement; empty when it does not.
std::string Scene::alterationWords(ShownSurface& shown) const {
  std::string words = shown.alterations();
  const std::string detail = detailWords(shown);
  if (!words.empty() && !detail.empty()) words += " · ";
  return words + detail;
}

}  // namespace morvane
