#include "view/indexed_surface.h"

#include <new>

#include "base/memory_advice.h"
#include "view/gl_driver.h"

namespace morvane {
namespace {

template <typename T>
void upload(const GlBuffer& buffer, const std::vector<T>& values) {
  // Not as an element array: that binding belongs to the vertex array.
  glBindBuffer(GL_ARRAY_BUFFER, buffer.name());
  glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(values.size() * sizeof(T)), values.data(),
               GL_STATIC_DRAW);
}

}  // namespace

void IndexedSurface::empty() {
  buffers_ = {};
  step_ = vertices_ = corners_ = 0;
}

bool IndexedSurface::build(const SurfaceModel& model, const BitmapDrape* drape, std::size_t step) {
  empty();
  // The mesh is copied into GL's memory.
  const std::size_t vertices = coarseVertices(*model.shown(), step);
  if (vertices > UINT32_MAX || !fitsIntoMemory(2 * vertices * kCoarseBytesPerVertex)) return false;
  try {
    const CoarseMesh mesh = model.buildCoarse(step, drape);
    takeGlErrors("surface");
    for (GlBuffer& buffer : buffers_) buffer = GlBuffer::generate();
    upload(buffers_[0], mesh.positions);
    upload(buffers_[1], mesh.colours);
    upload(buffers_[2], mesh.normals);
    upload(buffers_[3], mesh.corners);
    step_ = step;
    vertices_ = mesh.vertices();
    corners_ = mesh.corners.size();
    if (glGetError() == GL_NO_ERROR) return true;
  } catch (const std::bad_alloc&) {
    // As below.
  }
  empty();
  return false;
}

}  // namespace morvane
