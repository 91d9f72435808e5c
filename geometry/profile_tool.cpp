#include "geometry/profile_tool.h"

#include <new>
#include <ostream>
#include <utility>

namespace morvane {
namespace {

constexpr glm::vec4 kFirstPinColour{1.0F, 0.0F, 1.0F, 1.0F};
constexpr glm::vec4 kSecondPinColour{0.0F, 0.0F, 0.0F, 1.0F};

}  // namespace

ProfileSurface profileSurface(ShownSurface& shown) {
  const SurfaceModel& model = shown.measured();
  const ResHeader& header = shown.measurement().header;
  return {model.shown(), header.pixelSizeX,   header.pixelSizeY,
          shown.crop(),  model.limits().zMax, model.limits().zMin};
}

void ProfileTool::setSurface(const ProfileSurface& surface) {
  if (surface == surface_) return;
  surface_ = surface;
  placePins(pins_, clampedToGrid(placesOf(pins_), gridSize()));
  changed();
}

GridSize ProfileTool::gridSize() const {
  if (!surface_.heights) return {};
  return {surface_.heights->width(), surface_.heights->height()};
}

void ProfileTool::loadPins() {
  *log_ << "loading pins....\n";
  pins_[0].colour = kFirstPinColour;
  pins_[1].colour = kSecondPinColour;
  pinsExist_ = true;
  placeInFirstColumn();
}

void ProfileTool::placePinsAt(const PinPair& places) {
  placePins(pins_, clampedToGrid(places, gridSize()));
  changed();
}

void ProfileTool::resetPins() {
  if (pinsExist_) placeInFirstColumn();
}

void ProfileTool::placeInFirstColumn() {
  const PinSize size = pinSize(gridSize().width);
  for (Pin& pin : pins_) pin.halfExtents = size.halfExtents;
  placePins(pins_, profilePins(gridSize()));
  changed();
}

void ProfileTool::movePin(glm::vec2 motion, bool wholeLine) {
  if (wholeLine) {
    placePins(pins_, movePins(placesOf(pins_), motion, gridSize()));
  } else {
    grabbedPin_->position = morvane::movePin(grabbedPin_->position, motion, gridSize());
  }
  changed();
}

void ProfileTool::swapPins() {
  placePins(pins_, swapped(placesOf(pins_)));
  changed();
}

void ProfileTool::changed() {
  needsRecompute_ = true;
  if (onChange) onChange();
}

const ProfileSection& ProfileTool::section() {
  if (std::exchange(needsRecompute_, false)) {
    section_ = {};
    try {
      if (pinsExist_ && surface_.heights) {
        section_ = sampleProfile(*surface_.heights, placesOf(pins_), surface_.crop);
      }
    } catch (const std::bad_alloc&) {
      *log_ << "There is not enough memory for this section.\n";
    }
  }
  return section_;
}

}  // namespace morvane
