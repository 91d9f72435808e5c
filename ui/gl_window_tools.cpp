// The profile and the grid tool in the 3D view: their frames, and pins that follow the cursor.
#include <iostream>

#include "geometry/surface_hit.h"
#include "geometry/surface_line.h"
#include "ui/gl_window.h"

namespace morvane {

void GLWindow::setProfileMode(bool on) {
  profileMode_ = on;
  profileLoaded_ = false;
  releaseTool();
  if (!on) profiler_->resetPins();
  redraw();
}

void GLWindow::swapPins() {
  profiler_->swapPins();
  redraw();
}

void GLWindow::setGridMode(bool on) {
  gridMode_ = on;
  releaseTool();
  redraw();
}

void GLWindow::updateTools() {
  const auto& shown = model_.shown();
  const SurfaceLimits& limits = model_.limits();
  profiler_->setSurface({shown, measurement_.header.pixelSizeX, measurement_.header.pixelSizeY,
                         crop_, limits.zMax, limits.zMin});
  gridTool_.setGrid({shown->width(), shown->height()});
}

void GLWindow::drawTools() {
  if (profileMode_) {
    drawProfileTool();
  } else if (pickWorld_->contains(ToolKind::kProfile)) {
    pickWorld_->removeObjects(ToolKind::kProfile);
  }
  if (gridMode_) {
    drawGridTool();
  } else if (pickWorld_->contains(ToolKind::kGrid)) {
    pickWorld_->removeObjects(ToolKind::kGrid);
  }
}

void GLWindow::loadProfile() {
  std::cout << "Do pins exist: " << profiler_->pinsExist() << '\n';
  pickWorld_->removeObjects(ToolKind::kProfile);
  if (!profiler_->pinsExist()) {
    std::cout << "Loading new Pins\n";
    profiler_->loadPins();
  }
  for (Pin& pin : profiler_->pins()) pickWorld_->addObject(pin, ToolKind::kProfile);
  profiler_->redraw();
  profileLoaded_ = true;
}

void GLWindow::drawProfileTool() {
  if (!profileLoaded_) loadProfile();
  if (!pinRenderer_.generated()) pinRenderer_.generate();
  if (!lineRenderer_.generated()) lineRenderer_.generate();
  for (const Pin& pin : profiler_->pins()) pinRenderer_.drawPin(matrices_, pin);
  lineRenderer_.draw(matrices_, sectionLine(profiler_->section(), placesOf(profiler_->pins()),
                                            heightToModel(zScale_), lift()));
  pickWorld_->refresh(ToolKind::kProfile);
}

void GLWindow::drawGridTool() {
  if (!pickWorld_->contains(ToolKind::kGrid)) {
    for (Pin& corner : gridTool_.corners()) pickWorld_->addObject(corner, ToolKind::kGrid);
  }
  if (!pinRenderer_.generated()) pinRenderer_.generate();
  gridTool_.draw(matrices_, pinRenderer_);
  const GridSize grid = {model_.shown()->width(), model_.shown()->height()};
  if (grid.width >= 2 && grid.height >= 2) {
    if (!lineRenderer_.generated()) lineRenderer_.generate();
    lineRenderer_.draw(matrices_,
                       regionOutline(drawnHeights(), regionBetween(gridTool_.places(), grid)));
  }
  pickWorld_->refresh(ToolKind::kGrid);
}

void GLWindow::grabTool(Pin* hit) {
  toolDrag_ = ToolDrag::kNone;
  if (hit == nullptr) return;
  // A tool that has just been switched off stays in the picking world until the next frame.
  const bool ofProfile = profiler_->owns(*hit);
  if (!(ofProfile ? profileMode_ : gridMode_)) return;
  if (ofProfile) {
    toolDrag_ = ToolDrag::kProfilePin;
    profiler_->grab(*hit);
  } else {
    toolDrag_ = ToolDrag::kGridCorner;
    gridTool_.grab(*hit);
  }
}

DrawnHeights GLWindow::drawnHeights() const {
  return {*model_.shown(), model_.crop, zScale_, model_.shownMean(), lift()};
}

void GLWindow::dragTool(glm::vec2 point) {
  if (!modelLoaded_) return;
  const ViewMatrices matrices = presentMatrices();
  const auto hit =
      surfaceHit(drawnHeights(), pickRay(matrices, w(), h(), point.x, point.y), matrices.overlay);
  if (!hit) return;
  const glm::vec2 target(hit->point);
  if (toolDrag_ == ToolDrag::kProfilePin) {
    profiler_->movePin(target - glm::vec2(profiler_->grabbedPin().position), profileLineMode);
  } else {
    gridTool_.move(target - glm::vec2(gridTool_.grabbed().position));
  }
}

void GLWindow::releaseTool() {
  if (toolDrag_ == ToolDrag::kProfilePin) profiler_->redraw();
  toolDrag_ = ToolDrag::kNone;
}

}  // namespace morvane
