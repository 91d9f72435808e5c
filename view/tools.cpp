#include "view/tools.h"

#include <ostream>

#include "geometry/drawn_surface.h"
#include "geometry/surface_line.h"
#include "surface/mesh.h"

namespace morvane {

void Tools::setProfileMode(bool on) {
  profileMode_ = on;
  profileLoadedFor_ = 0;
  release();
  if (!on) profile_.resetPins();
}

void Tools::setGridMode(bool on) {
  gridMode_ = on;
  release();
}

void Tools::follow(ShownSurface& shown) {
  const HeightGrid& grid = *shown.measured().shown();
  profile_.setSurface(profileSurface(shown));
  gridTool_.setGrid({grid.width(), grid.height()});
}

void Tools::draw(ShownSurface& shown, const ViewMatrices& matrices) {
  if (!pickWorld_) pickWorld_ = std::make_unique<PickWorld>();
  pickWorld_->setMatrices(matrices);
  follow(shown);
  if (profileMode_ || gridMode_) {
    if (!pinRenderer_.generated()) pinRenderer_.generate();
    if (!lineRenderer_.generated()) lineRenderer_.generate();
  }
  if (profileMode_) {
    drawProfile(shown, matrices);
  } else if (pickWorld_->contains(ToolKind::kProfile)) {
    pickWorld_->removeObjects(ToolKind::kProfile);
  }
  if (gridMode_) {
    drawGrid(shown, matrices);
  } else if (pickWorld_->contains(ToolKind::kGrid)) {
    pickWorld_->removeObjects(ToolKind::kGrid);
  }
}

void Tools::loadProfile() {
  *log_ << "Do pins exist: " << profile_.pinsExist() << '\n';
  pickWorld_->removeObjects(ToolKind::kProfile);
  if (!profile_.pinsExist()) {
    *log_ << "Loading new Pins\n";
    profile_.loadPins();
  }
  for (Pin& pin : profile_.pins()) pickWorld_->addObject(pin, ToolKind::kProfile);
  if (profile_.onChange) profile_.onChange();
}

void Tools::drawProfile(ShownSurface& shown, const ViewMatrices& matrices) {
  if (profileLoadedFor_ != shown.measurementRevision()) {
    loadProfile();
    profileLoadedFor_ = shown.measurementRevision();
  }
  for (const Pin& pin : profile_.pins()) pinRenderer_.drawPin(matrices, pin);
  lineRenderer_.draw(matrices, sectionLine(profile_.section(), placesOf(profile_.pins()),
                                           heightToModel(shown.zScale()), liftOf(shown)));
  pickWorld_->refresh(ToolKind::kProfile);
}

void Tools::drawGrid(ShownSurface& shown, const ViewMatrices& matrices) {
  if (!pickWorld_->contains(ToolKind::kGrid)) {
    for (Pin& corner : gridTool_.corners()) pickWorld_->addObject(corner, ToolKind::kGrid);
  }
  const DrawnHeights heights = drawnHeights(shown);
  if (cellCount(heights.grid) > 0) {
    const GridSize grid = {heights.grid.width(), heights.grid.height()};
    lineRenderer_.draw(matrices, regionOutline(heights, regionBetween(gridTool_.places(), grid)));
  }
  // Over the outline, which would hide the thin corners of a small grid.
  for (const Pin& corner : gridTool_.corners()) pinRenderer_.drawPin(matrices, corner);
  pinRenderer_.drawTranslucent(matrices, gridTool_.box());
  pickWorld_->refresh(ToolKind::kGrid);
}

bool Tools::grab(const Ray& ray) {
  drag_ = Drag::kNone;
  Pin* hit = pickWorld_ ? pickWorld_->rayTest(ray.origin, ray.direction) : nullptr;
  if (hit == nullptr) return false;
  // A tool that has just been switched off stays in the picking world until the next frame.
  const bool ofProfile = profile_.owns(*hit);
  if (!(ofProfile ? profileMode_ : gridMode_)) return false;
  if (ofProfile) {
    drag_ = Drag::kProfilePin;
    profile_.grab(*hit);
  } else {
    drag_ = Drag::kGridCorner;
    gridTool_.grab(*hit);
  }
  return true;
}

void Tools::drag(ShownSurface& shown, const ViewMatrices& matrices, const Ray& ray, bool second) {
  if (!shown.modelLoaded()) return;
  if (second && drag_ == Drag::kProfilePin) profile_.grabSecond();
  const auto hit = surfaceHit(drawnHeights(shown), ray, matrices.overlay);
  if (!hit) return;
  const glm::vec2 target(hit->point);
  if (drag_ == Drag::kProfilePin) {
    profile_.movePin(target - glm::vec2(profile_.grabbedPin().position), profileLineMode);
  } else {
    gridTool_.move(target - glm::vec2(gridTool_.grabbed().position));
  }
}

void Tools::release() {
  if (drag_ == Drag::kProfilePin && profile_.onChange) profile_.onChange();
  drag_ = Drag::kNone;
}

}  // namespace morvane
