// The 3D view: the toolkit's GL window that shows the measured surface and its colour key.
#pragma once

#include <functional>
#include <string>

#include "geometry/camera.h"
#include "resfile/res_file.h"
#include "surface/shown_surface.h"
#include "ui/gl_pane.h"
#include "ui/profiler.h"
#include "view/mouse_hand.h"
#include "view/scene.h"
#include "view/tools.h"

namespace morvane {

/// Turns the toolkit's events into calls on what it owns: the measurement-file object, the surface
/// on show, the camera, the tools and the scene that draws them. GL calls happen inside `draw()`
/// and `handle()` only.
class GLWindow : public GlPane {
 public:
  GLWindow(int x, int y, int w, int h, const char* label);

  int handle(int event) override;

  /// The object the open action reads with. What it holds after a failed read is not on show.
  [[nodiscard]] resFile& file() { return file_; }
  /// What is on show; a change of it asks for a frame.
  [[nodiscard]] ShownSurface& surface() { return shown_; }
  [[nodiscard]] Tools& tools() { return tools_; }
  /// The window that plots the section: a neighbour of this one in the main window.
  [[nodiscard]] Profiler& profiler() { return *profiler_; }

  /// What of the picture is switched on.
  [[nodiscard]] const SceneOptions& options() const { return options_; }
  void setOption(bool SceneOptions::*option, bool on);

  void setProfileMode(bool on);
  void swapPins();
  void setGridMode(bool on);

  /// Puts the camera back to its first place.
  void resetCamera();
  /// Shows the window and draws the frame at once, where the system can draw it.
  void showNow();
  /// Whether the system can draw the view at all. Says so once through `onTrouble` when not.
  bool glUsable();
  /// The folder of the executable, for the font.
  void setExeFolder(const std::string& folder);

  /// Told, in a sentence, why the system cannot draw the view at all.
  std::function<void(const std::string&)> onTrouble;
  /// Told why a measurement that is open cannot be shown. Called while a frame is drawn.
  std::function<void(const std::string&)> onNotShown;
  /// Called when limits or scale have been brought up to date.
  std::function<void()> onMeasured;
  /// Called when a frame is about to be drawn.
  std::function<void()> onDraw;

 protected:
  void draw() override;

 private:
  /// Brings the numbers up to date where no frame will.
  void measureSoon();
  void initialiseGlew();
  void reportTrouble(const std::string& reason);

  resFile file_;
  ShownSurface shown_;
  Camera camera_;
  Tools tools_;
  MouseHand hand_{shown_, camera_, tools_};
  Scene scene_;
  SceneOptions options_;
  Profiler* profiler_;     // the toolkit's
  bool firstShow_ = true;  // GLEW not yet initialised
  bool glReady_ = false;   // GLEW found the functions the view calls
  bool troubleReported_ = false;
};

}  // namespace morvane
