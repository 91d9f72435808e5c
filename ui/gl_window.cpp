#include "ui/gl_window.h"

#include <FL/Fl.H>

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "base/debug_log.h"
#include "base/memory_advice.h"
#include "base/paths.h"
#include "ui/gl_mode.h"
#include "ui/window_geometry.h"
#include "view/gl_driver.h"

namespace morvane {
namespace {

constexpr const char* kLogFile = "GLWindow.log";
// By then the rasteriser has finished the first frame of a surface.
constexpr double kTidyAfter = 0.3;  // seconds
// A motion that pauses for so long is taken to rest.
constexpr double kRest = 0.15;  // seconds
// How long a slice of a frame may take.
constexpr double kSlice = 25.0;  // milliseconds

void tidyMemory(void* /*data*/) { releaseSpareMemory(); }

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

GLWindow::~GLWindow() { abandonFull(); }

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
  camera_ = Camera{};
  redraw();
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
  // glewInit may fail for the window system (GLX) only. What counts is whether the functions exist.
  glReady_ =
      glCreateShader != nullptr && glGenVertexArrays != nullptr && glMapBufferRange != nullptr;
  if (!glReady_) {
    const auto* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    reportTrouble(std::string("the driver (OpenGL ") + (version ? version : "unknown") +
                  ") lacks functions it needs");
  }
}

Subject GLWindow::subject() {
  return {shown_, tools_, camera_, options_, {w(), h(), pixel_w(), pixel_h()}};
}

void GLWindow::draw() {
  if (onDraw) onDraw();
  abandonFull();
  if (!shown_.modelLoaded() || !glReady_) {
    Scene::drawNothing();
    return;
  }
  if (showKept()) return;
  coarseStepNeeded() > 1 ? drawCoarse() : drawFull();
}

void GLWindow::drawWhole() {
  abandonFull();
  if (shown_.modelLoaded() && glReady_) drawFull();
}

std::size_t GLWindow::coarseStepNeeded() {
  const HeightGrid& grid = *shown_.measured().shown();
  if (pacer_.fullIsFast(grid.count())) return 1;
  return std::max<std::size_t>(coarseStep(grid, pacer_.coarsePoints()), 2);
}

void GLWindow::drawFull() {
  const std::size_t points = shown_.measured().shown()->count();
  const bool timed = points > FramePacer::kSmallSurface && !scene_.fullMeshNeeded(shown_);
  const Stopwatch watch;
  const FrameReport report = scene_.draw(subject());
  if (timed) {
    glFinish();
    pacer_.fullTook(points, watch.milliseconds());
  }
  fullPending_ = false;
  keepFrame();
  endFrame(report);
}

void GLWindow::drawCoarse() {
  const std::size_t step = coarseStepNeeded();
  const bool timed = !scene_.coarseMeshNeeded(shown_, step);
  endFrame(scene_.drawCoarse(subject(), step));
  if (timed) coarseDrawn_ = coarseVertices(*shown_.measured().shown(), step);
  fullPending_ = true;
  keepNothing();
  const std::uint64_t measurement = shown_.measurementRevision();
  const bool opened = std::exchange(opened_, measurement) != measurement;
  const bool released = std::exchange(released_, false);
  beginFullAfter(opened || released ? 0.0 : kRest);
}

void GLWindow::flush() {
  const Stopwatch watch;
  coarseDrawn_ = 0;
  GlPane::flush();
  tellFrame(!fullPending_);
  if (coarseDrawn_ == 0) return;
  pacer_.coarseTook(coarseDrawn_, watch.milliseconds());
}

void GLWindow::beginFullAfter(double seconds) {
  Fl::remove_timeout(beginFull, this);
  Fl::add_timeout(seconds, beginFull, this);
}

void GLWindow::beginFull(void* window) {
  auto* view = static_cast<GLWindow*>(window);
  if (view->damage() != 0 || view->visible_r() == 0) return;  // `draw` follows
  view->abandonFull();
  view->make_current();
  view->scene_.begin(view->subject());
  view->slicesTook_ = 0.0;
  Fl::add_idle(drawSlice, view);
}

void GLWindow::abandonFull() {
  Fl::remove_timeout(beginFull, this);
  Fl::remove_idle(drawSlice, this);
}

void GLWindow::drawSlice(void* window) { static_cast<GLWindow*>(window)->drawSlice(); }

void GLWindow::drawSlice() {
  if (damage() != 0 || visible_r() == 0) {  // `draw` follows
    abandonFull();
    return;
  }
  make_current();
  const bool building = scene_.fullMeshNeeded(shown_);
  const Stopwatch watch;
  const bool complete = scene_.advance(subject(), kSlice);
  if (complete) glFinish();
  if (!building) slicesTook_ += watch.milliseconds();
  if (!complete) return;
  abandonFull();
  pacer_.fullTook(shown_.measured().shown()->count(), slicesTook_);
  fullPending_ = false;
  keepFrame();
  swap_buffers();
  tellFrame(true);
  endFrame(scene_.report());
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
      if (firstShow_) initialiseGlew();
      return result;
    }
    case FL_PUSH:
      hand_.press(eventPoint(), eventButton());
      return 1;
    case FL_RELEASE:
      released_ = fullPending_;
      if (hand_.release(eventPoint(), heldOr(eventButton()))) {
        redraw();
      } else if (std::exchange(released_, false)) {
        beginFullAfter(0.0);
      }
      return 1;
    case FL_DRAG:
      hand_.drag(eventPoint(), heldOr({}));
      redraw();
      return 1;
    case FL_MOVE:
      hand_.move(eventPoint());
      return 1;
    case FL_MOUSEWHEEL:
      logStream() << "SCALE: " << camera_.distance << '\n';
      // FLTK may have merged a motion into this event.
      hand_.move(eventPoint());
      hand_.wheel(Fl::event_dy());
      redraw();
      return 1;
    case FL_ENTER:
      logStream() << "Entered\n";
      // FLTK sends FL_MOVE to widgets that accept FL_ENTER.
      (void)Fl_Gl_Window::handle(event);
      // There is no separate event for the motion into the window.
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
