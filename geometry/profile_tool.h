// The profile tool: two pins and the section of the surface between them.
#pragma once

#include <functional>
#include <iosfwd>
#include <memory>

#include "geometry/pin.h"
#include "geometry/profile_section.h"
#include "surface/shown_surface.h"

namespace morvane {

/// The surface that is sectioned.
struct ProfileSurface {
  std::shared_ptr<const HeightGrid> heights;
  double pixelSizeX = 0.0;  ///< mm between columns
  double pixelSizeY = 0.0;  ///< mm between rows
  Crop crop;                ///< clips the heights while it is on
  float limitHigh = 0.0F;   ///< of the heat map
  float limitLow = 0.0F;

  bool operator==(const ProfileSurface&) const = default;
};

/// The surface shown, as the section needs it.
ProfileSurface profileSurface(ShownSurface& shown);

/// The pins are drawn and picked in the 3D view. They stay in place when another measurement is
/// shown.
class ProfileTool {
 public:
  /// Writes its diagnostics to `log`, which must outlive it.
  explicit ProfileTool(std::ostream& log) : log_(&log) {}

  /// Sets the surface shown. Pins outside it are clamped to it. If the surface is a different one
  /// the section is computed again.
  void setSurface(const ProfileSurface& surface);
  [[nodiscard]] const ProfileSurface& surface() const { return surface_; }

  [[nodiscard]] bool pinsExist() const { return pinsExist_; }
  /// Creates the pins at the two ends of the first column, in the size for the grid.
  void loadPins();
  /// Puts the pins, which must exist, to `places` on the surface.
  void placePinsAt(const PinPair& places);
  /// Puts existing pins back to the places of `loadPins`.
  void resetPins();
  [[nodiscard]] Pins& pins() { return pins_; }
  [[nodiscard]] bool owns(const Pin& pin) const {
    return &pin == pins_.data() || &pin == &pins_[1];
  }

  /// Selects `pin`, one of the two, as the one that `movePin` moves.
  void grab(Pin& pin) { grabbedPin_ = &pin; }
  /// The same for the second pin.
  void grabSecond() { grabbedPin_ = &pins_[1]; }
  [[nodiscard]] const Pin& grabbedPin() const { return *grabbedPin_; }
  /// Moves the grabbed pin by a motion in model units. With `wholeLine` both pins move.
  void movePin(glm::vec2 motion, bool wholeLine);
  /// Swaps the places of the two pins.
  void swapPins();

  /// The section between the pins, computed again if anything has changed.
  const ProfileSection& section();

  /// Called when the section has changed.
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
