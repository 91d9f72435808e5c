#include "view/paced_scene.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "surface/coarse_mesh.h"
#include "view/picture_target.h"
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
  // A frame in motion has one sample a pixel: a software GL draws it in half the time.
  std::optional<PictureTarget> target;
  target.emplace(subject.viewport.pixelWidth, subject.viewport.pixelHeight, 0);
  if (!target->usable()) target.reset();
  FrameReport report = scene_.drawCoarse(subject, step);
  if (target) target->copyBack();
  coarseTimed_ = timed ? coarseVertices(*subject.shown.measured().shown(), step) : 0;
  whole_ = false;
  const std::uint64_t measurement = subject.shown.measurementRevision();
  const bool opened = std::exchange(drawn_, measurement) != measurement;
  const bool ended = std::exchange(motionEnded_, false);
  restLeft_ = opened || ended ? 0.0 : kRest;
  return report;
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
