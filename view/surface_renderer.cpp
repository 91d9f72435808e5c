#include "view/surface_renderer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <glm/gtc/type_ptr.hpp>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

#include "base/memory_advice.h"
#include "view/gl_driver.h"
#include "view/shader_sources.h"

namespace morvane {
namespace {

enum Attribute : GLuint { kPosition = 0, kColour = 1, kNormal = 2, kNextCorner, kLastCorner };

constexpr std::size_t kVertexBytes = 3 * sizeof(float);

/// Reads an attribute from a buffer, starting at vertex `first`, with a stride of `step` vertices.
void useBuffer(Attribute attribute, const VertexBuffer& buffer, std::size_t first = 0,
               std::size_t step = 1) {
  glEnableVertexAttribArray(attribute);
  glBindBuffer(GL_ARRAY_BUFFER, buffer.name());
  glVertexAttribPointer(attribute, 3, GL_FLOAT, GL_FALSE, static_cast<GLsizei>(step * kVertexBytes),
                        // NOLINTNEXTLINE(performance-no-int-to-ptr): an offset, as GL wants it
                        reinterpret_cast<const void*>(first * kVertexBytes));
}

struct SyncDeleter {
  void operator()(GLsync sync) const { glDeleteSync(sync); }
};
using Sync = std::unique_ptr<std::remove_pointer_t<GLsync>, SyncDeleter>;

/// Draws a list of triangles or points. A software GL queues primitives until it rasterises them,
/// and the queue for a large surface would be nearly as large as its buffers. So the list is drawn
/// in pieces, with at most `kPiecesAhead` of them in the queue.
void drawList(GLenum kind, std::size_t count) {
  const auto vertexCount = static_cast<GLsizei>(count);
  if (!isSoftwareGl() || glFenceSync == nullptr) {
    glDrawArrays(kind, 0, vertexCount);
    return;
  }
  const GLsizei piece = (kind == GL_TRIANGLES ? 3 : 1) << 15;
  constexpr std::size_t kPiecesAhead = 2;
  constexpr GLuint64 kOneSecond = 1'000'000'000;
  std::array<Sync, kPiecesAhead> drawn;
  std::size_t next = 0;
  for (GLsizei first = 0; first < vertexCount; first += piece) {
    if (const Sync earlier = std::move(drawn[next])) {
      glClientWaitSync(earlier.get(), GL_SYNC_FLUSH_COMMANDS_BIT, kOneSecond);
    }
    glDrawArrays(kind, first, std::min(piece, vertexCount - first));
    drawn[next] = Sync(glFenceSync(GL_SYNC_GPU_COMMANDS_COMPLETE, 0));
    next = (next + 1) % kPiecesAhead;
  }
}

void setUniforms(const ShaderProgram& program, const ViewMatrices& matrices, const glm::vec3& eye,
                 bool lit) {
  glUseProgram(program.name());
  const auto vec3 = [&](const char* name, float x, float y, float z) {
    glUniform3f(program.uniform(name), x, y, z);
  };
  const auto mat4 = [&](const char* name, const glm::mat4& matrix) {
    glUniformMatrix4fv(program.uniform(name), 1, GL_FALSE, glm::value_ptr(matrix));
  };
  mat4("M", matrices.model);
  mat4("V", matrices.view);
  mat4("P", matrices.projection);
  glUniformMatrix3fv(program.uniform("normalMatrix"), 1, GL_FALSE, glm::value_ptr(matrices.normal));
  const float strength = lit ? 0.5F : 1.0F;
  vec3("ambient_lighting", strength, strength, strength);
  vec3("diffuse_lighting", strength, strength, strength);
  // Kept: the surface shader has no point light, so this has no effect.
  if (lit) vec3("LightPos", 0.0F, 0.0F, 4.0F);
  vec3("LightDirection", 0.0F, 0.0F, -1.0F);
  vec3("specular_lighting", 1.0F, 1.0F, 1.0F);
  vec3("CameraPosition", eye.x, eye.y, eye.z);
  glUniform1f(program.uniform("LightPower"), 0.5F);
  glUniform1f(program.uniform("Shininess"), 32.0F);
}

}  // namespace

void SurfaceRenderer::generate() {
  vertexArray_ = GlVertexArray::generate();
  positions_.generate();
  colours_.generate();
  normals_.generate();
  program_ = ShaderProgram(kSurfaceShader);
}

std::string SurfaceRenderer::bind(const SurfaceModel& model, const BitmapDrape* drape) {
  columns_ = rows_ = 0;
  std::string reason = fill(model, drape);
  if (reason.empty()) return {};
  emptyBuffers();
  return reason;
}

void SurfaceRenderer::emptyBuffers() {
  for (VertexBuffer* buffer : {&positions_, &colours_, &normals_}) buffer->empty();
}

std::string SurfaceRenderer::fill(const SurfaceModel& model, const BitmapDrape* drape) {
  const std::size_t cells = cellCount(*model.shown());
  if (cells == 0 || !model.hasHeights()) return {};
  if (cells > std::numeric_limits<GLsizei>::max() / kVerticesPerCell) {
    return "the grid has more cells than one picture can hold";
  }
  glBindVertexArray(vertexArray_.name());
  const std::size_t floats = cells * kFloatsPerCell;
  emptyBuffers();
  if (isSoftwareGl() && !fitsIntoMemory(3 * floats * sizeof(float))) {
    return "the memory cannot hold the surface";
  }
  if (!positions_.open(floats) || !colours_.open(floats) || !normals_.open(floats)) {
    return "the graphics memory cannot hold the surface";
  }
  try {
    model.build({positions_.floats(), normals_.floats(), colours_.floats(), {}}, drape);
  } catch (const std::bad_alloc&) {
    return "the memory cannot hold what its rows need";
  }
  if (!positions_.close() || !colours_.close() || !normals_.close()) {
    return "the graphics memory was lost while it was filled";
  }
  columns_ = model.shown()->width() - 1;
  rows_ = model.shown()->height() - 1;
  return {};
}

void SurfaceRenderer::draw(const ViewMatrices& matrices, const glm::vec3& eye,
                           const SurfaceLook& look) {
  if (!look.filled && pointProgram_.name() == 0) pointProgram_ = ShaderProgram(kPointShader);
  setUniforms(look.filled ? program_ : pointProgram_, matrices, eye, look.lit);
  glBindVertexArray(vertexArray_.name());
  if (look.filled) {
    useBuffer(kPosition, positions_);
    useBuffer(kColour, colours_);
    useBuffer(kNormal, normals_);
    drawList(GL_TRIANGLES, columns_ * rows_ * kVerticesPerCell);
  } else if (columns_ > 0) {
    drawPoints();
  }
  for (const Attribute attribute : {kPosition, kColour, kNormal, kNextCorner, kLastCorner}) {
    glDisableVertexAttribArray(attribute);
  }
  glDisable(GL_CULL_FACE);
}

void SurfaceRenderer::drawPoints() const {
  for (const PointRun& run : pointRuns(columns_, rows_)) {
    const std::size_t vertex = run.vertex;
    const std::size_t triangle = vertex - vertex % 3;
    useBuffer(kPosition, positions_, vertex, kVerticesPerCell);
    useBuffer(kColour, colours_, vertex, kVerticesPerCell);
    useBuffer(kNormal, normals_, vertex, kVerticesPerCell);
    useBuffer(kNextCorner, positions_, triangle + (vertex + 1) % 3, kVerticesPerCell);
    useBuffer(kLastCorner, positions_, triangle + (vertex + 2) % 3, kVerticesPerCell);
    if (run.step == 1) {
      drawList(GL_POINTS, run.count);
      continue;
    }
    // A stride of whole rows may exceed the largest stride that GL allows.
    std::vector<GLuint> cells(run.count);
    for (std::size_t i = 0; i < run.count; ++i) cells[i] = static_cast<GLuint>(i * run.step);
    glDrawElements(GL_POINTS, static_cast<GLsizei>(run.count), GL_UNSIGNED_INT, cells.data());
  }
}

}  // namespace morvane
