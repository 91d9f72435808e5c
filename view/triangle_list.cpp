#include "view/triangle_list.h"

#include <algorithm>
#include <limits>
#include <new>

#include "base/memory_advice.h"
#include "view/gl_driver.h"
#include "view/stopwatch.h"

namespace morvane {
namespace {

// How long building the rows of one call may take, in milliseconds. The first call builds so many
// cells.
constexpr double kSlice = 25.0;
constexpr double kFirstCells = 1 << 17;

}  // namespace

void TriangleList::generate() {
  for (VertexBuffer* buffer : {&positions_, &colours_, &normals_}) buffer->generate();
}

void TriangleList::empty() {
  for (VertexBuffer* buffer : {&positions_, &colours_, &normals_}) buffer->empty();
  columns_ = rows_ = nextRow_ = rowsToBuild_ = 0;
  cellsAtOnce_ = kFirstCells;
}

std::string TriangleList::begin(const SurfaceModel& model) {
  empty();
  const std::size_t cells = cellCount(*model.shown());
  if (cells == 0 || !model.hasHeights()) return {};
  if (cells > std::numeric_limits<GLsizei>::max() / kVerticesPerCell) {
    return "the grid has more cells than one picture can hold";
  }
  const std::size_t floats = cells * kFloatsPerCell;
  if (isSoftwareGl() && !fitsIntoMemory(3 * floats * sizeof(float))) {
    return "the memory cannot hold the surface";
  }
  if (!positions_.open(floats) || !colours_.open(floats) || !normals_.open(floats)) {
    return "the graphics memory cannot hold the surface";
  }
  rowsToBuild_ = model.shown()->height() - 1;
  return {};
}

std::string TriangleList::advance(const SurfaceModel& model, const BitmapDrape* drape) {
  if (!unfinished()) return {};
  const std::size_t columns = model.shown()->width() - 1;
  const auto rows = static_cast<std::size_t>(cellsAtOnce_ / static_cast<double>(columns));
  const std::size_t end = nextRow_ + std::max<std::size_t>(rows, 1);
  const Stopwatch watch;
  try {
    model.build({positions_.floats(), normals_.floats(), colours_.floats(), {}}, drape,
                {nextRow_, end});
  } catch (const std::bad_alloc&) {
    return "the memory cannot hold what its rows need";
  }
  nextRow_ = std::min(end, rowsToBuild_);
  cellsAtOnce_ *= std::clamp(kSlice / std::max(watch.milliseconds(), 1.0), 0.5, 2.0);
  return unfinished() ? std::string() : close(model);
}

std::string TriangleList::close(const SurfaceModel& model) {
  if (!positions_.close() || !colours_.close() || !normals_.close()) {
    return "the graphics memory was lost while it was filled";
  }
  columns_ = model.shown()->width() - 1;
  rows_ = model.shown()->height() - 1;
  return {};
}

}  // namespace morvane
