#include "ui/gl_window.h"

#include <FL/Fl.H>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <iostream>
#include <utility>

#include "base/debug_log.h"
#include "base/memory_advice.h"
#include "base/number_text.h"
#include "base/paths.h"
#include "geometry/key_column.h"
#include "ui/gl_mode.h"
#include "view/gl_driver.h"

namespace morvane {
namespace {

constexpr glm::vec3 kTextColour{0.0F, 0.0F, 0.0F};
constexpr glm::vec3 kSky{0.65F, 0.86F, 1.0F};

constexpr const char* kLogFile = "GLWindow.log";
// Long enough for the rasteriser to have finished the first frame of a surface.
constexpr double kTidyAfter = 0.3;  // seconds

void tidyMemory(void* /*data*/) { releaseSpareMemory(); }

class Stopwatch {
 public:
  [[nodiscard]] double milliseconds() const {
    return std::chrono::duration<double, std::milli>(Clock::now() - start_).count();
  }
  /// Prints what a step took, as `label` + time + " milliseconds".
  void print(const char* label) const {
    std::printf("%s%.3f milliseconds\n", label, milliseconds());
  }

 private:
  using Clock = std::chrono::steady_clock;
  Clock::time_point start_ = Clock::now();
};

}  // namespace

GLWindow::GLWindow(int x, int y, int w, int h, const char* label)
    : GlPane(x, y, w, h, label), file_(std::cout), model_(std::cout), bitmap_(std::cout) {
  mode(kGlMode);
  end();
  profiler_ = new Profiler(150, 550, 1130, 250, "Profile Window");
}

void GLWindow::updateMeasurement() {
  DebugLog::write(kLogFile, "Updating Res File...");
  measurement_ = file_.measurement();
  DebugLog::write(kLogFile, "Updating Profile Res File...");
  DebugLog::write(kLogFile, "Updating Autoscaling...");
  model_.setRaw(measurement_.grid);
  modelLoaded_ = true;
  profileLoaded_ = false;
  requestRebuild();
}

void GLWindow::requestRebuild() {
  modelBound_ = false;
  modelMeasured_ = false;
  keyDirty_ = true;
  redraw();
}

void GLWindow::showMeasurement() {
  if (glUsable()) {
    show();
    redraw();
    Fl::flush();
  }
  // Before the window is on the screen nothing is drawn; the controls need the numbers now.
  ensureMeasured();
}

void GLWindow::setZScale(float zScale) {
  model_.skipScale = true;
  zScale_ = zScale;
  redraw();
}

void GLWindow::setCrop(const Crop& crop, Rebuild when) {
  crop_ = crop;
  if (modelLoaded_) updateTools();
  const Crop& drawn = model_.crop;
  const bool sameClamp = drawn.on == crop.on && drawn.min == crop.min && drawn.max == crop.max;
  if (when == Rebuild::kNow && !sameClamp && (drawn.on || crop.on)) requestRebuild();
  redraw();
}

void GLWindow::flatten() {
  constexpr float kFlat = 1e-7F;
  setZScale(kFlat);
}

void GLWindow::swapColourSource() {
  model_.heatMap = !model_.heatMap;
  bitmapColours_ = !bitmapColours_;
  redraw();
}

void GLWindow::resetCamera() {
  camera_ = Camera{};
  redraw();
}

void GLWindow::setAxesVisible(bool visible) {
  axesVisible_ = visible;
  redraw();
}

void GLWindow::setKeyVisible(bool visible) {
  keyVisible_ = visible;
  redraw();
}

void GLWindow::setFilledPolygons(bool filled) {
  filledPolygons_ = filled;
  redraw();
}

void GLWindow::setLighting(bool on) {
  lightingOn_ = on;
  redraw();
}

void GLWindow::setFilterEnabled(bool enabled) {
  model_.useFiltered = enabled;
  requestRebuild();
}

void GLWindow::setFiltered(std::shared_ptr<const HeightGrid> grid, std::string words) {
  filterWords_ = std::move(words);
  model_.setFiltered(std::move(grid));
  requestRebuild();
  if (!glReady_) ensureMeasured();  // no frame will
}

void GLWindow::setGlobalLimits(float max, float min) {
  model_.globalScale = HeatMapScale(min, max, Beyond::kNearerEnd);
  requestRebuild();
}

void GLWindow::clearGlobalLimits() {
  model_.globalScale.reset();
  requestRebuild();
}

void GLWindow::ensureMeasured() {
  if (!modelMeasured_ && modelLoaded_) measure();
}

void GLWindow::measure() {
  DebugLog::write(kLogFile, "Binding Model Data...\n");
  model_.crop = crop_;
  model_.measure();
  if (!model_.skipScale) zScale_ = model_.autoScale();
  modelMeasured_ = true;
  updateTools();
  if (onMeasured) onMeasured();
}

bool GLWindow::glUsable() {
  if (can_do()) return true;
  reportTrouble("the display offers no OpenGL");
  return false;
}

void GLWindow::reportTrouble(const std::string& reason) {
  if (std::exchange(troubleReported_, true)) return;
  const std::string message = "The surface cannot be drawn: " + reason +
                              ". The 3D view needs a display and driver with OpenGL 3.0 and the "
                              "GLSL ES 3.00 shading language.";
  std::fprintf(stderr, "%s\n", message.c_str());
  if (onTrouble) onTrouble(message);
}

void GLWindow::initialiseGlew() {
  if (!shown()) return;
  firstShow_ = false;
  make_current();
  DebugLog::write(kLogFile, "Initializing GLEW\n");
  const GLenum error = glewInit();
  if (error != GLEW_OK) {
    std::array<char, 64> message;
    std::snprintf(message.data(), message.size(), "glewInit() failed returning %u", error);
    Fl::warning("%s", message.data());
    DebugLog::write(kLogFile, message.data());
  }
  // GLEW may complain about the window system only; what counts is whether the functions are there.
  glReady_ =
      glCreateShader != nullptr && glGenVertexArrays != nullptr && glMapBufferRange != nullptr;
  if (!glReady_) {
    const auto* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    reportTrouble(std::string("the driver (OpenGL ") + (version ? version : "unknown") +
                  ") lacks functions it needs");
  }
}

void GLWindow::draw() {
  if (onDraw) onDraw();
  if (!pickWorld_) pickWorld_ = std::make_unique<PickWorld>();
  if (!modelLoaded_ || !glReady_) {
    glClearColor(0.0F, 0.0F, 0.0F, 0.0F);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    return;
  }
  const Stopwatch frame;
  if (needsBuffers_) generateBuffers();
  if (!modelBound_) bindModel();
  drawSurface();
  if (axesVisible_) axes_.draw(matrices_, axesRange());
  frame.print("Drawing Time: ");
  if (std::exchange(keyBuffersNeeded_, false)) key_.generateBuffers();
  const bool keyShown = keyVisible_ && wearsHeatMap_;
  if (keyShown && std::exchange(keyDirty_, false)) key_.rebuild();
  frame.print("Drawing Time for HM Key: ");
  drawTools();
  // Over the tools, so that no pin stands before a number and the key shows its own colours.
  if (axesVisible_) Axes::drawLabels(matrices_, axesRange(), w(), h(), text_);
  if (keyShown) drawKey();
  drawAlterations();
  checkGl("surface");
}

void GLWindow::generateBuffers() {
  const Stopwatch watch;
  DebugLog::write(kLogFile, "GENERATING BUFFERS......\n");
  surface_.generate();
  key_.generateProgram();
  if (!surface_.usable() || !key_.usable()) {
    reportTrouble(std::string("the shaders do not compile on ") +
                  reinterpret_cast<const char*>(glGetString(GL_RENDERER)));
  }
  text_.initialise(resourcePath(exeFolder, "Fonts", "arial.ttf"), kTextSpaceWidth, kTextSpaceHeight,
                   kSky);
  watch.print("Buffer Generation Time: ");
  needsBuffers_ = false;
  axes_.generate();
}

void GLWindow::bindModel() {
  const Stopwatch watch;
  ensureMeasured();
  wearsHeatMap_ = model_.heatMap;
  const std::optional<BitmapDrape> drape = drapeBitmap();
  const std::string reason = surface_.bind(model_, drape ? &*drape : nullptr);
  if (!reason.empty() && onNotShown) onNotShown("The surface cannot be shown: " + reason + '.');
  modelBound_ = true;
  Fl::remove_timeout(tidyMemory);
  Fl::add_timeout(kTidyAfter, tidyMemory);
  watch.print("Model Binding Time: ");
}

std::optional<BitmapDrape> GLWindow::drapeBitmap() {
  const HeightGrid& grid = *model_.shown();
  if (model_.heatMap || !bitmapColours_ || !bitmapAvailable() || cellCount(grid) == 0) return {};
  bitmap_.readBitmap(bitmapPath_);
  std::cout << "BMP ARRAY: " << 8 << '\n' << "RES WIDTH: " << grid.width() << '\n';
  if (bitmap_.pixels().empty()) return {};
  return BitmapDrape(bitmap_, grid.width(), grid.height());
}

void GLWindow::drawSurface() {
  glClearColor(kSky.r, kSky.g, kSky.b, 0.0F);
  glPointSize(2.0F);
  glViewport(0, 0, pixel_w(), pixel_h());
  glEnable(GL_MULTISAMPLE);
  glEnable(GL_FRAMEBUFFER_SRGB);
  glEnable(GL_DEPTH_TEST);
  glDepthFunc(GL_LESS);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  matrices_ = presentMatrices();
  surface_.draw(matrices_, camera_.eye, {lightingOn_, filledPolygons_});
  pickWorld_->setMatrices(matrices_);
}

ViewMatrices GLWindow::presentMatrices() const {
  const HeightGrid& grid = *model_.shown();
  return viewMatrices(camera_, w(), h(), grid.width(), grid.height(), zScale_, lift());
}

float GLWindow::lift() const {
  const HeightGrid& grid = *model_.shown();
  return heightLift(model_.limits(), model_.autoScale(), grid.width(), grid.height(), zScale_);
}

AxesRange GLWindow::axesRange() const {
  const SurfaceLimits& limits = model_.limits();
  return {&measurement_.header, limits.zMin, limits.zMax, heightToModel(zScale_), lift()};
}

void GLWindow::drawKey() {
  // However near the surface comes, the key lies over it.
  glDisable(GL_DEPTH_TEST);
  key_.draw();
  glEnable(GL_DEPTH_TEST);
  drawKeyLabels();
}

void GLWindow::drawKeyLabels() {
  text_.setPixels(w(), h());
  const HeatMapScale scale = model_.colourScale();
  const KeyColumn column = keyColumn(
      scale.upper(), scale.lower(),
      [this](std::string_view text, float size) { return text_.widthInSpace(text, size); });
  for (const KeyNumber& number : column.numbers) {
    text_.draw(number.text, number.x, number.y, column.scale, kTextColour);
  }
  text_.draw(fileNameOf(measurement_.path), 20.0F, 750.0F, 0.3F, kTextColour);
}

std::string GLWindow::alterations() const {
  std::string words = model_.shown() == model_.raw() ? std::string() : filterWords_;
  const Crop& crop = model_.crop;
  if (crop.on) {
    if (!words.empty()) words += " · ";
    words += "Limits " + shownText(crop.min, 2) + " to " + shownText(crop.max, 2) + " µm";
  }
  return words;
}

void GLWindow::drawAlterations() {
  const std::string words = alterations();
  if (words.empty()) return;
  constexpr float kLeft = 20.0F;
  constexpr float kScale = 0.3F;
  constexpr glm::vec3 kQuiet{0.06F, 0.06F, 0.06F};
  text_.setPixels(w(), h());
  const float room = kTextSpaceWidth - 2 * kLeft;
  const float scale = kScale * std::min(1.0F, room / text_.widthInSpace(words, kScale));
  text_.draw(words, kLeft, 730.0F, scale, kQuiet);
}

}  // namespace morvane
