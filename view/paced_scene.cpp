#include "view/paced_scene.h"

#include <algorithm>
#include <utility>

#include "surface/coarse_mesh.h"
#include "view/gl_state.h"
#include "view/stopwatch.h"

namespace morvane {
namespace {

// A motion that pauses for so long is considered finished.
constexpr double kRest = 0.15;  // seconds
// How long a slice of a frame may take.
constexpr double kSlice = 25.0;  // milliseconds

}  // namespace

FrameReport PacedScene::draw(const Subject& subject) {
  const std::size_t step = coarseStepFor(subject.shown);
  return step > 1 ? drawCoarse(subject, step) : drawWhole(subject);
}

std::size_t PacedScene::fullPoints(ShownSurface& shown) const {
  const HeightGrid& grid = *shown.measured().shown();
  const std::size_t step = scene_.fullStep(shown);
  return step > 1 ? coarseVertices(grid, step) : grid.count();
}

std::size_t PacedScene::coarseStepFor(ShownSurface& shown) const {
  if (pacer_.fullIsFast(fullPoints(shown))) return 1;
  const std::size_t step = coarseStep(*shown.measured().shown(), pacer_.coarsePoints());
  return std::max({step, scene_.fullStep(shown), std::size_t{2}});
}

FrameReport PacedScene::drawWhole(const Subject& subject) {
  const std::size_t points = fullPoints(subject.shown);
  // Where frames are fast only some are timed: waiting for the end of each would slow them down.
  constexpr int kUntimed = 15;
  const bool wanted = !pacer_.fullIsFast(points) || ++untimed_ > kUntimed;
  const bool timed =
      points > FramePacer::kSmallSurface && wanted && !scene_.fullMeshNeeded(subject.shown);
  const Stopwatch watch;
  FrameReport report = scene_.draw(subject);
  if (timed) {
    glFinish();
    pacer_.fullTook(points, watch.milliseconds());
    untimed_ = 0;
  }
  whole_ = true;
  motionEnded_ = false;
  coarseTimed_ = 0;
  return report;
}

FrameReport PacedScene::drawCoarse(const Subject& subject, std::size_t step) {
  const bool timed = !scene_.coarseMeshNeeded(subject.shown, step);
  bindTarget(subject.viewport);
  FrameReport report =
      scene_.drawCoarse(subject, step, pacer_.fullIsSlow(fullPoints(subject.shown)));
  if (target_) {
    target_->copyBack();
    target_->unbind();
  }
  coarseTimed_ = timed ? coarseVertices(*subject.shown.measured().shown(), step) : 0;
  whole_ = false;
  const std::uint64_t measurement = subject.shown.measurementRevision();
  const bool opened = std::exchange(drawn_, measurement) != measurement;
  const bool ended = std::exchange(motionEnded_, false);
  restSeconds_ = opened || ended ? 0.0 : kRest;
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
  const GlFrontBuffer front;
  target_->bind();
  target_->copyBack();
  target_->unbind();
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
  const std::size_t points = fullPoints(subject.shown);
  if (points > FramePacer::kSmallSurface) pacer_.fullTook(points, slicesTook_);
  whole_ = true;
  return true;
}

}  // namespace morvane
