#include "view/paced_scene.h"

#include <algorithm>
#include <utility>

#include "surface/coarse_mesh.h"
#include "view/stopwatch.h"

namespace morvane {
namespace {

// A motion that pauses for so long is considered finished.
constexpr double kRest = 0.15;  // seconds
// How long a slice of a frame may take.
constexpr double kSlice = 25.0;  // milliseconds

std::size_t pointsOf(ShownSurface& shown) { return shown.measured().shown()->count(); }

}  // namespace

FrameReport PacedScene::draw(const Subject& subject) {
  const std::size_t step = coarseStepFor(subject.shown);
  return step > 1 ? drawCoarse(subject, step) : drawWhole(subject);
}

std::size_t PacedScene::coarseStepFor(ShownSurface& shown) const {
  const HeightGrid& grid = *shown.measured().shown();
  if (pacer_.fullIsFast(grid.count())) return 1;
  return std::max<std::size_t>(coarseStep(grid, pacer_.coarsePoints()), 2);
}

FrameReport PacedScene::drawWhole(const Subject& subject) {
  const std::size_t points = pointsOf(subject.shown);
  const bool timed = points > FramePacer::kSmallSurface && !scene_.fullMeshNeeded(subject.shown);
  const Stopwatch watch;
  FrameReport report = scene_.draw(subject);
  if (timed && scene_.fullMeshHasAll()) {
    glFinish();
    pacer_.fullTook(points, watch.milliseconds());
  }
  whole_ = true;
  coarseTimed_ = 0;
  return report;
}

FrameReport PacedScene::drawCoarse(const Subject& subject, std::size_t step) {
  const bool timed = !scene_.coarseMeshNeeded(subject.shown, step);
  bindTarget(subject.viewport);
  FrameReport report = scene_.drawCoarse(subject, step, pacer_.fullIsSlow(pointsOf(subject.shown)));
  if (target_) {
    target_->copyBack();
    target_->unbind();
  }
  coarseTimed_ = timed ? coarseVertices(*subject.shown.measured().shown(), step) : 0;
  whole_ = false;
  const std::uint64_t measurement = subject.shown.measurementRevision();
  const bool opened = std::exchange(drawn_, measurement) != measurement;
  const bool ended = std::exchange(motionEnded_, false);
  restLeft_ = opened || ended ? 0.0 : kRest;
  return report;
}

void PacedScene::bindTarget(const Viewport& viewport) {
  if (target_ && target_->width() == viewport.pixelWidth &&
      target_->height() == viewport.pixelHeight) {
    return target_->bind();
  }
  target_.emplace(viewport.pixelWidth, viewport.pixelHeight, 0);
  if (!target_->usable()) target_.reset();
}

bool PacedScene::showCoarse() {
  if (!target_) return false;
  // The back buffer has what is drawn of the whole frame.
  glDrawBuffer(GL_FRONT);
  target_->bind();
  target_->copyBack();
  target_->unbind();
  glFlush();
  glDrawBuffer(GL_BACK);
  return true;
}

void PacedScene::wasPresented(double milliseconds) {
  if (coarseTimed_ > 0) pacer_.coarseTook(std::exchange(coarseTimed_, 0), milliseconds);
}

void PacedScene::begin(const Subject& subject) {
  scene_.begin(subject);
  slicesTook_ = 0.0;
}

bool PacedScene::advance(const Subject& subject) {
  const bool building = scene_.fullMeshNeeded(subject.shown);
  const Stopwatch watch;
  const bool complete = scene_.advance(subject, kSlice);
  if (complete) glFinish();
  if (!building) slicesTook_ += watch.milliseconds();
  if (!complete) return false;
  if (scene_.fullMeshHasAll()) pacer_.fullTook(pointsOf(subject.shown), slicesTook_);
  whole_ = true;
  return true;
}

}  // namespace morvane
