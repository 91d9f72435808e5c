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
  /// Writes its diagnostics to `log`, which must outlive this object.
  explicit Tools(std::ostream& log) : log_(&log), profile_(log) {}

  /// Switches the profile tool on or off: its line and its pins, which can then be grabbed.
  /// Switching it off forgets the line.
  void setProfileMode(bool on);
  [[nodiscard]] bool profileMode() const { return profileMode_; }
  [[nodiscard]] ProfileTool& profile() { return profile_; }
  bool profileLineMode = false;  ///< a drag moves the whole profile line, not one pin

  /// Switches the grid tool on or off: two corners and the box between them.
  void setGridMode(bool on);
  [[nodiscard]] bool gridMode() const { return gridMode_; }
  [[nodiscard]] const GridTool& gridTool() const { return gridTool_; }

  /// Takes the size and heights of the surface on show; pins of a larger one come inside.
  void follow(ShownSurface& shown);
  /// Draws the active tools over the surface and makes their pins grabbable. Needs a current GL
  /// context.
  void draw(ShownSurface& shown, const ViewMatrices& matrices);

  /// Grabs the pin that `ray` hits; false when there is none.
  bool grab(const Ray& ray);
  /// Whether a pin is grabbed.
  [[nodiscard]] bool dragging() const { return drag_ != Drag::kNone; }
  /// Moves the grabbed pin to the point of the surface that `ray` hits. With `second` it moves the
  /// section's second pin instead.
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
  std::unique_ptr<PickWorld> pickWorld_;  // created with the first frame
  Drag drag_ = Drag::kNone;
  bool profileMode_ = false;
  bool gridMode_ = false;
  std::uint64_t profileLoadedFor_ = 0;  // the measurement whose pins are in the picking world
};

}  // namespace morvane
