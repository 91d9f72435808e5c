// The 3D view: the FLTK GL window that shows the measured surface and its colour key.
#pragma once

#include <functional>
#include <string>

#include "geometry/camera.h"
#include "resfile/res_file.h"
#include "surface/shown_surface.h"
#include "ui/gl_pane.h"
#include "ui/profiler.h"
#include "view/mouse_hand.h"
#include "view/paced_scene.h"
#include "view/tools.h"

namespace morvane {

/// Passes FLTK's events to the objects that it owns: the measurement-file object, the surface
/// shown, the camera, the tools and the scene that draws them. Makes GL calls in `draw()` and
/// `handle()` only.
class GLWindow : public GlPane {
 public:
  GLWindow(int x, int y, int w, int h, const char* label);
  ~GLWindow() override;

  int handle(int event) override;
  void flush() override;

  /// The object with which files are read. After a failed read its content is not what is shown.
  [[nodiscard]] resFile& file() { return file_; }
  /// What is shown. Changing it requests a redraw.
  [[nodiscard]] ShownSurface& surface() { return shown_; }
  [[nodiscard]] Tools& tools() { return tools_; }
  /// The window that plots the section, a sibling of this one in the main window.
  [[nodiscard]] Profiler& profiler() { return *profiler_; }

  /// Which parts of the picture are switched on.
  [[nodiscard]] const SceneOptions& options() const { return options_; }
  void setOption(bool SceneOptions::*option, bool on);

  void setProfileMode(bool on);
  void swapPins();
  void setGridMode(bool on);

  /// Resets the camera.
  void resetCamera();
  /// Shows the window and draws it at once, if GL is usable.
  void showNow();
  /// Whether the system can draw the view. If not, `onTrouble` is called once.
  bool glUsable();
  /// Sets the folder of the executable, from which the font is loaded.
  void setExeFolder(const std::string& folder);

  /// Called with the reason why the system cannot draw the view.
  std::function<void(const std::string&)> onTrouble;
  /// Called with the reason why a measurement cannot be shown, while a frame is drawn.
  std::function<void(const std::string&)> onNotShown;
  /// Called when limits or scale have been brought up to date.
  std::function<void()> onMeasured;
  /// Called before a frame is drawn.
  std::function<void()> onDraw;

 protected:
  void draw() override;
  void drawWhole() override;

 private:
  [[nodiscard]] Subject subject();
  /// Draws a whole frame in slices, from the event loop, after `seconds`.
  void drawSlicesAfter(double seconds);
  static void beginSlices(void* window);
  static void drawSlice(void* window);
  void stopSlices();
  void endFrame(const FrameReport& report);
  /// Brings the numbers up to date where no frame will.
  void measureSoon();
  void initialiseGlew();
  void reportTrouble(const std::string& reason);

  resFile file_;
  ShownSurface shown_;
  Camera camera_;
  Tools tools_;
  MouseHand hand_{shown_, camera_, tools_};
  PacedScene scene_;
  SceneOptions options_;
  Profiler* profiler_;     // owned by FLTK
  bool firstShow_ = true;  // GLEW not yet initialised
  bool glReady_ = false;   // GLEW found the functions the view calls
  bool troubleReported_ = false;
};

}  // namespace morvane
