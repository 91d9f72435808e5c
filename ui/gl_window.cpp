#include "ui/gl_window.h"

#include <FL/Fl.H>

#include <array>
#include <cstdio>
#include <utility>

#include "base/debug_log.h"
#include "base/memory_advice.h"
#include "base/paths.h"
#include "geometry/drawn_surface.h"
#include "ui/gl_mode.h"
#include "ui/gl_start.h"
#include "ui/window_geometry.h"
#include "view/gl_driver.h"

namespace morvane {
namespace {

// By then the rasteriser has finished the first frame of a surface.
constexpr double kTidyAfter = 0.3;  // seconds

void tidyMemory(void* /*data*/) { releaseSpareMemory(); }

void redrawLater(void* window) { static_cast<Fl_Widget*>(window)->redraw(); }

void tellWhole(void* /*data*/) { tellFrame(true); }

/// Tells of a frame on the screen; of a whole one only when the other windows are drawn too, so
/// that whoever waits for it can look at all of them.
void tellShown(bool whole) {
  Fl::remove_timeout(tellWhole);
  whole ? Fl::add_timeout(0.0, tellWhole) : tellFrame(false);
}

/// The button of the current event.
HeldButtons eventButton() {
  return {.left = Fl::event_button() == FL_LEFT_MOUSE,
          .right = Fl::event_button() == FL_RIGHT_MOUSE};
}

HeldButtons heldOr(HeldButtons button) {
  return {.left = button.left || Fl::event_button1() != 0,
          .right = button.right || Fl::event_button3() != 0};
}

glm::vec2 eventPoint() {
  return {static_cast<float>(Fl::event_x()), static_cast<float>(Fl::event_y())};
}

}  // namespace

GLWindow::GLWindow(int x, int y, int w, int h, const char* label)
    : GlPane(x, y, w, h, label), file_(logStream()), shown_(logStream()), tools_(logStream()) {
  mode(kGlMode);
  end();
  constexpr PixelArea area = windowLayout(kWindowWidth, kWindowHeight, false, true).profile;
  profiler_ =
      new Profiler(area.x, area.y, area.w, area.h, "Profile Window", tools_.profile(), shown_);
  tools_.profile().onChange = [this] { profiler_->redraw(); };
  shown_.onChange = [this] {
    redraw();
    profiler_->redraw();
    if (!glReady_) measureSoon();
  };
  shown_.onMeasured = [this] {
    tools_.follow(shown_);
    if (onMeasured) onMeasured();
  };
}

GLWindow::~GLWindow() {
  stopSlices();
  Fl::remove_timeout(redrawLater, this);
}

void GLWindow::measureSoon() {
  const Fl_Timeout_Handler measure = [](void* view) {
    (void)static_cast<GLWindow*>(view)->shown_.measured();
  };
  Fl::remove_timeout(measure, this);
  Fl::add_timeout(0.0, measure, this);
}

void GLWindow::setExeFolder(const std::string& folder) {
  scene_.setFont(resourcePath(folder, "Fonts", "arial.ttf"));
  profiler_->exeFolder = folder;
}

void GLWindow::setOption(bool SceneOptions::*option, bool on) {
  options_.*option = on;
  redraw();
}

void GLWindow::setLamp(const std::optional<Lamp>& lamp) {
  if (std::exchange(options_.lamp, lamp) != lamp) redraw();
}

void GLWindow::setProfileMode(bool on) {
  tools_.setProfileMode(on);
  redraw();
}

void GLWindow::swapPins() {
  tools_.profile().swapPins();
  redraw();
}

void GLWindow::setGridMode(bool on) {
  tools_.setGridMode(on);
  redraw();
}

void GLWindow::resetCamera() {
  undo_.keep(std::exchange(camera_, Camera{}), camera_);
  redraw();
}

void GLWindow::fitView() {
  if (!shown_.modelLoaded()) return;
  const Camera before = camera_;
  fit(camera_, drawnHeights(shown_), w(), h());
  undo_.keep(before, camera_);
  redraw();
}

void GLWindow::seeFrom(ViewDirection direction) {
  const Camera before = camera_;
  camera_ = Camera{};
  camera_.rotation = rotationOf(direction);
  fitView();
  undo_.keep(before, camera_);
}

void GLWindow::undoCamera() {
  undo_.exchange(camera_);
  redraw();
}

std::string GLWindow::pointUnderCursor() { return pointer_ ? hand_.textAt(*pointer_) : ""; }

void GLWindow::setPointer(std::optional<glm::vec2> point) {
  pointer_ = point;
  tellPointerSoon();
}

void GLWindow::tellPointerSoon() {
  // Not while FLTK draws its windows: what is told may show or hide one.
  const Fl_Timeout_Handler tell = [](void* view) {
    const auto& told = static_cast<GLWindow*>(view)->onPointer;
    if (told) told();
  };
  Fl::remove_timeout(tell, this);
  Fl::add_timeout(0.0, tell, this);
}

void GLWindow::showNow() {
  if (!glUsable()) return;
  show();
  redraw();
  Fl::flush();
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

PictureSize GLWindow::pictureSize() const {
  return {w(), h() + (profiler_->visible() ? profiler_->h() : 0)};
}

std::string GLWindow::drawPicture(int factor, RgbImage& picture) {
  if (!glReady_ || !shown_.modelLoaded() || visible_r() == 0) return "the view is not shown";
  stopSlices();
  make_current();
  PictureSettings settings;
  settings.size = pictureSize();
  settings.plotHeight = settings.size.height - h();
  settings.factor = factor;
  settings.camera = camera_;
  settings.options = options_;
  const std::string trouble = painter_.draw(shown_, tools_, settings, picture);
  checkGl("picture");
  redraw();
  return trouble;
}

void GLWindow::initialiseGl() {
  if (!shown()) return;
  firstShow_ = false;
  make_current();
  const std::string trouble = startGl();
  glReady_ = trouble.empty();
  if (!glReady_) reportTrouble(trouble);
}

Subject GLWindow::subject() {
  return {shown_, tools_, camera_, options_, {w(), h(), pixel_w(), pixel_h()}};
}

void GLWindow::draw() {
  if (onDraw) onDraw();
  stopSlices();
  if (!shown_.modelLoaded() || !glReady_) {
    Scene::drawNothing();
    return;
  }
  if (showKept()) return;
  const bool uncovered = damage() == FL_DAMAGE_EXPOSE;
  const bool resized = valid() == 0;
  const FrameReport report = scene_.draw(subject());
  tellPointerSoon();
  // During a drag the next frame follows at once.
  if (scene_.isWhole() && Fl::pushed() != this) {
    keepFrame();
  } else {
    keepNothing();
  }
  if (!scene_.isWhole()) {
    drawSlicesAfter(uncovered ? 0.0 : scene_.restSeconds());
    // Where slices were drawn, Mesa resizes the back buffer only after the next swap. FLTK forgets
    // a redraw that is requested in `draw`.
    if (resized) Fl::add_timeout(0.0, redrawLater, this);
  }
  endFrame(report);
}

void GLWindow::drawWhole() {
  stopSlices();
  if (!shown_.modelLoaded() || !glReady_) {
    Scene::drawNothing();
    return;
  }
  endFrame(scene_.drawWhole(subject()));
  tellShown(true);
}

void GLWindow::flush() {
  const bool uncovered = damage() == FL_DAMAGE_EXPOSE && valid() != 0;
  if (uncovered && Fl::has_idle(drawSlice, this) != 0) {
    make_current();
    if (scene_.showCoarse()) return;
  }
  const Stopwatch watch;
  GlPane::flush();
  if (!scene_.isWhole()) glFinish();
  scene_.wasPresented(watch.milliseconds());
  tellShown(scene_.isWhole());
}

void GLWindow::endMotion() {
  const bool frameFollows = damage() != 0;
  scene_.endMotion(frameFollows);
  const bool drawing = Fl::has_idle(drawSlice, this) != 0;
  if (!frameFollows && !scene_.isWhole() && !drawing) drawSlicesAfter(0.0);
}

void GLWindow::drawSlicesAfter(double seconds) {
  Fl::remove_timeout(beginSlices, this);
  Fl::add_timeout(seconds, beginSlices, this);
}

void GLWindow::stopSlices() {
  Fl::remove_timeout(beginSlices, this);
  Fl::remove_idle(drawSlice, this);
}

void GLWindow::beginSlices(void* window) {
  auto* view = static_cast<GLWindow*>(window);
  view->stopSlices();
  if (view->damage() != 0 || view->visible_r() == 0) return;  // `draw` follows
  view->make_current();
  view->scene_.begin(view->subject());
  Fl::add_idle(drawSlice, view);
}

void GLWindow::drawSlice(void* window) {
  auto* view = static_cast<GLWindow*>(window);
  if (view->visible_r() == 0) return view->stopSlices();
  if (view->damage() != 0) return;  // `flush` follows
  view->make_current();
  if (!view->scene_.advance(view->subject())) return;
  view->stopSlices();
  view->keepFrame();
  view->swap_buffers();
  tellShown(true);
  view->endFrame(view->scene_.report());
}

void GLWindow::endFrame(const FrameReport& report) {
  if (!report.trouble.empty()) reportTrouble(report.trouble);
  if (!report.meshBuilt) return;
  if (!report.notShown.empty() && onNotShown) {
    onNotShown("The surface cannot be shown: " + report.notShown + '.');
  }
  Fl::remove_timeout(tidyMemory);
  Fl::add_timeout(kTidyAfter, tidyMemory);
}

int GLWindow::handle(int event) {
  hand_.setWindow(w(), h());
  switch (event) {
    case FL_SHOW: {
      const int result = Fl_Gl_Window::handle(event);
      if (firstShow_) initialiseGl();
      return result;
    }
    case FL_PUSH:
      cameraAtPress_ = camera_;
      hand_.press(eventPoint(), eventButton());
      return 1;
    case FL_RELEASE: {
      const bool changed = hand_.release(eventPoint(), heldOr(eventButton()));
      undo_.keep(cameraAtPress_, camera_);
      if (changed) redraw();
      endMotion();
      return 1;
    }
    case FL_DRAG:
      setPointer(eventPoint());
      hand_.drag(eventPoint(), heldOr({}));
      redraw();
      return 1;
    case FL_LEAVE:
      setPointer({});
      break;
    case FL_MOVE:
      setPointer(eventPoint());
      hand_.move(eventPoint());
      return 1;
    case FL_MOUSEWHEEL: {
      const Camera before = camera_;
      logStream() << "SCALE: " << camera_.distance << '\n';
      // FLTK may have merged a motion into this event.
      hand_.move(eventPoint());
      hand_.wheel(Fl::event_dy());
      // A series of steps is one change.
      if (std::exchange(sinceWheel_, Stopwatch()).milliseconds() > 1000.0)
        undo_.keep(before, camera_);
      redraw();
      return 1;
    }
    case FL_ENTER:
      logStream() << "Entered\n";
      // FLTK sends FL_MOVE to widgets that accept FL_ENTER.
      (void)Fl_Gl_Window::handle(event);
      // There is no separate event for the motion into the window.
      setPointer(eventPoint());
      hand_.move(eventPoint());
      return 1;
    case FL_KEYDOWN:
      logStream() << "Key Down\n";
      // Kept: the words are swapped.
      if (Fl::event_key() == FL_Up) logStream() << "DOWN KEY PRESSED\n";
      if (Fl::event_key() == FL_Down) logStream() << "UP KEY PRESSED\n";
      break;
    case FL_SHORTCUT:
    case FL_ZOOM_GESTURE:
      logStream() << "\n>>> ZOOM <<< \n\n";
      break;
    default:
      break;
  }
  return Fl_Gl_Window::handle(event);
}

}  // namespace morvane
