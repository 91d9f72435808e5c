// The tools on the surface: section and grid box, their pins, and what a drag does to them.
#pragma once

#include <memory>

#include "geometry/camera.h"
#include "geometry/grid_tool.h"
#include "geometry/profile_tool.h"
#include "geometry/surface_hit.h"
#include "surface/shown_surface.h"
#include "view/pick_world.h"
#include "view/pin_renderer.h"
#include "view/surface_line.h"

namespace morvane {

class Tools {
 public:
  /// Writes its diagnostics to `log`, which must outlive it.
  explicit Tools(std::ostream& log) : log_(&log), profile_(log) {}

  /// Switches the profile tool: its pins and line, and what a press can grab. Off, the line is
  /// forgotten.
  void setProfileMode(bool on);
  [[nodiscard]] bool profileMode() const { return profileMode_; }
  [[nodiscard]] ProfileTool& profile() { return profile_; }
  bool profileLineMode = false;  ///< a drag moves the whole profile line, not one pin

  /// Switches the grid tool: two corners and the box between them.
  void setGridMode(bool on);
  [[nodiscard]] bool gridMode() const { return gridMode_; }
  [[nodiscard]] const GridTool& gridTool() const { return gridTool_; }

  /// Takes the size and heights of the surface on show; pins of a larger one come inside.
  void follow(ShownSurface& shown);
  /// Draws the tools that are on over the surface that `matrices` place, and makes them what a
  /// press can grab. Needs a current GL context.
  void draw(ShownSurface& shown, const ViewMatrices& matrices);

  /// Grabs the pin that `ray` meets; false when there is none.
  bool grab(const Ray& ray);
  /// Whether a pin is held.
  [[nodiscard]] bool dragging() const { return drag_ != Drag::kNone; }
  /// Moves what is held to the point of the surface that `ray` meets; `second` takes the second
  /// pin of the section instead.
  void drag(ShownSurface& shown, const ViewMatrices& matrices, const Ray& ray, bool second);
  void release();

 private:
  enum class Drag { kNone, kProfilePin, kGridCorner };

  void drawProfile(ShownSurface& shown, const ViewMatrices& matrices);
  void drawGrid(ShownSurface& shown, const ViewMatrices& matrices);
  void loadProfile();

  std::ostream* log_;
  ProfileTool profile_;
  GridTool gridTool_;
  PinRenderer pinRenderer_;
  SurfaceLineRenderer lineRenderer_;
  std::unique_ptr<PickWorld> pickWorld_;  // from the first frame on
  Drag drag_ = Drag::kNone;
  bool profileMode_ = false;
  bool gridMode_ = false;
  std::uint64_t profileLoadedFor_ = 0;  // the measurement whose pins are in the picking world
};

}  // namespace morvane
