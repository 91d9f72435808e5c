// The profile tool: two pins and the section of the surface between them.
#pragma once

#include <functional>
#include <iosfwd>
#include <memory>

#include "geometry/pin.h"
#include "geometry/profile_section.h"
#include "surface/shown_surface.h"

namespace morvane {

/// The surface that sections are taken of.
struct ProfileSurface {
  std::shared_ptr<const HeightGrid> heights;
  double pixelSizeX = 0.0;  ///< mm between columns
  double pixelSizeY = 0.0;  ///< mm between rows
  Crop crop;                ///< clips the heights while it is on
  float limitHigh = 0.0F;   ///< of the heat map
  float limitLow = 0.0F;

  bool operator==(const ProfileSurface&) const = default;
};

/// The surface on show as a section sees it.
ProfileSurface profileSurface(ShownSurface& shown);

/// The pins are drawn and picked in the 3D view; they stay from one measurement to the next.
class ProfileTool {
 public:
  /// Writes its diagnostics to `log`, which must outlive it.
  explicit ProfileTool(std::ostream& log) : log_(&log) {}

  /// Takes the surface on show; pins of a larger one come inside. Where it is another one the
  /// section is taken anew.
  void setSurface(const ProfileSurface& surface);
  [[nodiscard]] const ProfileSurface& surface() const { return surface_; }

  [[nodiscard]] bool pinsExist() const { return pinsExist_; }
  /// Creates the pins in the size that suits the grid, at the two ends of its first column.
  void loadPins();
  /// Puts pins that exist back to where `loadPins` places them.
  void resetPins();
  [[nodiscard]] Pins& pins() { return pins_; }
  [[nodiscard]] bool owns(const Pin& pin) const {
    return &pin == pins_.data() || &pin == &pins_[1];
  }

  /// Makes `pin`, one of the two, the one that `movePin` moves.
  void grab(Pin& pin) { grabbedPin_ = &pin; }
  /// The same for the second pin.
  void grabSecond() { grabbedPin_ = &pins_[1]; }
  [[nodiscard]] const Pin& grabbedPin() const { return *grabbedPin_; }
  /// Moves the grabbed pin, or with `wholeLine` both, by a motion in model units.
  void movePin(glm::vec2 motion, bool wholeLine);
  /// Exchanges the places of the two.
  void swapPins();

  /// Limits that clip the section's heights.
  [[nodiscard]] ProfileClip clip() const;
  /// The section between the pins, taken anew where something has changed.
  const ProfileSection& section();

  /// Called when the section is no longer what it was.
  std::function<void()> onChange;

 private:
  [[nodiscard]] GridSize gridSize() const;
  void placeInFirstColumn();
  void changed();

  std::ostream* log_;
  ProfileSurface surface_;
  Pins pins_;
  Pin* grabbedPin_ = pins_.data();
  bool pinsExist_ = false;
  bool needsRecompute_ = true;
  ProfileSection section_;
};

}  // namespace morvane
