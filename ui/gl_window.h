// The 3D view: the toolkit's GL window that shows the measured surface and its colour key.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "geometry/camera.h"
#include "geometry/surface_hit.h"
#include "resfile/bitmap_image.h"
#include "resfile/measurement.h"
#include "resfile/res_file.h"
#include "surface/surface_model.h"
#include "ui/gl_pane.h"
#include "ui/profiler.h"
#include "view/axes.h"
#include "view/grid_tool.h"
#include "view/key_renderer.h"
#include "view/pick_world.h"
#include "view/pin.h"
#include "view/surface_line.h"
#include "view/surface_renderer.h"
#include "view/text_renderer.h"

namespace morvane {

/// When a change of what a rebuild depends on is to be seen: at once or with another's rebuild.
enum class Rebuild { kNow, kLater };

/// Owns the measurement-file object, the surface model, the camera and the GL objects. Everything
/// happens on the GUI thread, GL calls only inside `draw()` and `handle()`.
class GLWindow : public GlPane {
 public:
  GLWindow(int x, int y, int w, int h, const char* label);

  int handle(int event) override;

  /// The object the open action reads with. What it holds after a failed read is not on show.
  [[nodiscard]] resFile& file() { return file_; }
  /// The measurement on show; empty path before the first.
  [[nodiscard]] const Measurement& measurement() const { return measurement_; }
  [[nodiscard]] bool modelLoaded() const { return modelLoaded_; }
  [[nodiscard]] const SurfaceModel& model() const { return model_; }

  /// Takes what `file()` has read as the measurement on show and asks for a rebuild.
  void updateMeasurement();
  /// Shows the view and brings its numbers up to date: the picture at once where the window is on
  /// the screen, else with its first frame.
  void showMeasurement();
  /// Makes the next frame build the surface and the key anew.
  void requestRebuild();

  /// Whether the system can draw the view at all. Says so once through `onTrouble` when not.
  bool glUsable();

  /// Brings limits and scale up to date before the next frame does.
  void ensureMeasured();

  /// Vertical exaggeration of the surface; infinite for a flat one, which is drawn at 1.
  [[nodiscard]] float zScale() const { return zScale_; }
  /// Puts a scale of the operator's in force until `useAutomaticScale`.
  void setZScale(float zScale);
  /// Takes the measurement's own scale with the next rebuild.
  void useAutomaticScale() { model_.skipScale = false; }
  /// The measurement's own scale, the base of the slider's steps.
  [[nodiscard]] float sliderScale() const { return model_.autoScale(); }
  /// Upper bound of the slider: a fresh file stands in its middle.
  [[nodiscard]] float maxScale() const { return 2.0F * sliderScale(); }

  /// Clamps the profile's heights to `crop` at once, those of the surface and its colours with the
  /// next rebuild; `kNow` asks for one, if that changes what is drawn.
  void setCrop(const Crop& crop, Rebuild when = Rebuild::kNow);
  [[nodiscard]] const Crop& crop() const { return crop_; }

  /// The bitmap that may be draped; an empty path chooses none.
  void chooseBitmap(const std::string& path) { bitmapPath_ = path; }
  [[nodiscard]] bool bitmapAvailable() const { return !bitmapPath_.empty(); }
  /// Draws the surface flat, as a bitmap wants it, until `useAutomaticScale`.
  void flatten();
  /// Swaps heat map and bitmap as the source of colours; acts with the next rebuild.
  void swapColourSource();

  /// Puts the camera back to its first place.
  void resetCamera();

  /// Switches the axes with their labels, and the colour key.
  [[nodiscard]] bool axesVisible() const { return axesVisible_; }
  void setAxesVisible(bool visible);
  [[nodiscard]] bool keyVisible() const { return keyVisible_; }
  void setKeyVisible(bool visible);
  [[nodiscard]] bool filledPolygons() const { return filledPolygons_; }
  /// Draws the surface as triangles, or as points.
  void setFilledPolygons(bool filled);
  /// Switches between shaded and raw colours.
  [[nodiscard]] bool lightingOn() const { return lightingOn_; }
  void setLighting(bool on);

  [[nodiscard]] bool filterEnabled() const { return model_.useFiltered; }
  /// Shows the filtered heights, where there are some that fit, or the raw ones.
  void setFilterEnabled(bool enabled);
  /// Takes the outcome of a filter run, null for none, and the words that go with its picture.
  void setFiltered(std::shared_ptr<const HeightGrid> grid, std::string words);
  /// Colours the surface, and labels the key, from `min` to `max` in place of its own limits.
  void setGlobalLimits(float max, float min);
  /// Gives surface and key their own limits again.
  void clearGlobalLimits();

  /// Switches the profile tool: its pins and line, and what a press can grab. Off, the line is
  /// forgotten.
  void setProfileMode(bool on);
  /// Exchanges the places of the two profile pins.
  void swapPins();
  /// The window that plots the profile: a neighbour of this one in the main window.
  [[nodiscard]] Profiler& profiler() { return *profiler_; }
  bool profileLineMode = false;  ///< a drag moves the whole profile line, not one pin
  bool profileShown = false;     ///< the profile window stands below the view

  /// Switches the grid tool: two corners and the box between them.
  void setGridMode(bool on);
  [[nodiscard]] bool gridMode() const { return gridMode_; }
  [[nodiscard]] const GridTool& gridTool() const { return gridTool_; }

  /// Told, in a sentence, why the system cannot draw the view at all.
  std::function<void(const std::string&)> onTrouble;
  /// Told why a measurement that is open cannot be shown. Called while a frame is drawn.
  std::function<void(const std::string&)> onNotShown;

  /// Called when limits or scale have been brought up to date.
  std::function<void()> onMeasured;

  /// Called when a frame is about to be drawn.
  std::function<void()> onDraw;

  std::string exeFolder;  ///< the view's own copy, for its resources

 protected:
  void draw() override;

 private:
  void measure();
  void generateBuffers();
  void bindModel();
  std::optional<BitmapDrape> drapeBitmap();
  void drawSurface();
  [[nodiscard]] AxesRange axesRange() const;
  void drawKey();
  void drawKeyLabels();
  [[nodiscard]] std::string alterations() const;
  void drawAlterations();

  void updateTools();
  void drawTools();
  void loadProfile();
  void drawProfileTool();
  void drawGridTool();
  [[nodiscard]] DrawnHeights drawnHeights() const;
  void grabTool(Pin* hit);
  void dragTool(glm::vec2 point);
  void releaseTool();
  [[nodiscard]] ViewMatrices presentMatrices() const;
  [[nodiscard]] float lift() const;

  int onPush();
  int onRelease();
  int onDrag();
  void dragTo(glm::vec2 point, bool left, bool right);
  int onMove();
  int onWheel();

  void initialiseGlew();
  void reportTrouble(const std::string& reason);

  resFile file_;
  Measurement measurement_;
  SurfaceModel model_;
  Camera camera_;
  ViewMatrices matrices_;
  SurfaceRenderer surface_;
  TextRenderer text_;
  Axes axes_;
  KeyRenderer key_;
  float zScale_ = 1.0F;
  glm::vec2 mousePrevious_{0.0F, 0.0F};  // where the last drag event was
  BitmapImage bitmap_;
  std::string bitmapPath_;
  bool bitmapColours_ = false;  // where no heat map colours the surface, a bitmap may
  std::string filterWords_;     // of the filtered grid
  Crop crop_;  // in force with the next rebuild; the model's own is that of the last

  bool modelBound_ = false;     // the surface buffers hold the present model
  bool modelMeasured_ = false;  // its numbers are those of the present grid and flags
  bool keyDirty_ = true;        // the key must be rebuilt
  bool keyVisible_ = true;
  bool axesVisible_ = true;
  bool wearsHeatMap_ = true;    // the surface was last built with heat-map colours
  bool modelLoaded_ = false;    // there is something to show
  bool filledPolygons_ = true;  // false: points
  bool needsBuffers_ = true;    // programs and buffers must be made
  bool lightingOn_ = true;
  bool keyBuffersNeeded_ = true;
  bool firstShow_ = true;  // GLEW not yet initialised
  bool glReady_ = false;   // GLEW found the functions the view calls
  bool troubleReported_ = false;

  enum class ToolDrag { kNone, kProfilePin, kGridCorner };
  Profiler* profiler_;  // the toolkit's
  GridTool gridTool_;
  PinRenderer pinRenderer_;
  SurfaceLineRenderer lineRenderer_;
  std::unique_ptr<PickWorld> pickWorld_;  // from the first frame on
  ToolDrag toolDrag_ = ToolDrag::kNone;   // what the press grabbed
  bool profileMode_ = false;
  bool profileLoaded_ = false;  // the tool knows the present measurement
  bool gridMode_ = false;
};

}  // namespace morvane
