// The 3D view: the FLTK GL window that shows the measured surface and its colour key.
#pragma once

#include <functional>
#include <glm/vec2.hpp>
#include <optional>
#include <string>

#include "export/scene_picture.h"
#include "geometry/camera_views.h"
#include "resfile/res_file.h"
#include "surface/shown_surface.h"
#include "ui/gl_pane.h"
#include "ui/profiler.h"
#include "view/mouse_hand.h"
#include "view/paced_scene.h"
#include "view/stopwatch.h"
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

  /// Lights the surface by a lamp, or without one along the view.
  void setLamp(const std::optional<Lamp>& lamp);

  void setProfileMode(bool on);
  void swapPins();
  void setGridMode(bool on);

  /// The size of a picture of the view and the plot below it, in pixels of the window.
  [[nodiscard]] PictureSize pictureSize() const;
  /// Draws such a picture, with `factor` × `factor` pixels for each of the window, whatever is in
  /// front of it. Returns an empty text on success, else why there is no picture.
  std::string drawPicture(int factor, RgbImage& picture);

  /// Resets the camera.
  void resetCamera();
  /// Shows the whole surface as large as possible, rotated as it is.
  void fitView();
  /// Shows the whole surface from a direction.
  void seeFrom(ViewDirection direction);
  /// Takes back the last change of the camera by a drag, a series of zoom steps, or one of the
  /// above; the next call repeats it.
  void undoCamera();
  /// Whether a measurement is fitted when it is opened. If so, zooming stops before the surface.
  [[nodiscard]] bool fitsOnOpen() const { return hand_.stopsAtSurface; }
  void setFitsOnOpen(bool on) { hand_.stopsAtSurface = on; }
  /// The point of the surface under the cursor in words, see `pointText`; empty when the cursor is
  /// elsewhere.
  [[nodiscard]] std::string pointUnderCursor();
  /// Shows the window and draws it at once, if GL is usable.
  void showNow();
  /// A mouse button that moved the picture is released: the whole frame follows at once.
  void endMotion();
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
  /// Called when another point may be under the cursor.
  std::function<void()> onPointer;
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
  void setPointer(std::optional<glm::vec2> point);
  void tellPointerSoon();
  void endFrame(const FrameReport& report);
  /// Brings the numbers up to date where no frame will.
  void measureSoon();
  void initialiseGl();
  void reportTrouble(const std::string& reason);

  resFile file_;
  ShownSurface shown_;
  Camera camera_;
  CameraUndo undo_;
  Camera cameraAtPress_;
  Stopwatch sinceWheel_;
  std::optional<glm::vec2> pointer_;  // while it is in the view
  Tools tools_;
  MouseHand hand_{shown_, camera_, tools_};
  PacedScene scene_;
  ScenePainter painter_{scene_.scene()};
  SceneOptions options_;
  Profiler* profiler_;     // owned by FLTK
  bool firstShow_ = true;  // GLEW not yet initialised
  bool glReady_ = false;   // GLEW found the functions the view calls
  bool troubleReported_ = false;
};

}  // namespace morvane
