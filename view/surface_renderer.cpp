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

#include "base/memory_advice.h"
#include "view/gl_driver.h"
#include "view/shader_sources.h"

namespace morvane {
namespace {

enum Attribute : GLuint { kPosition = 0, kColour = 1, kNormal = 2 };

void useBuffer(Attribute attribute, const VertexBuffer& buffer) {
  glEnableVertexAttribArray(attribute);
  glBindBuffer(GL_ARRAY_BUFFER, buffer.name());
  glVertexAttribPointer(attribute, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
}

struct SyncDeleter {
  void operator()(GLsync sync) const { glDeleteSync(sync); }
};
using Sync = std::unique_ptr<std::remove_pointer_t<GLsync>, SyncDeleter>;

/// Draws the triangle list. A software GL keeps every triangle it has not drawn yet: at once, the
/// list of a large surface would take nearly as much memory again as its buffers. So it gets the
/// list piece by piece, and its rasteriser may fall behind by no more than `kPiecesAhead` of them.
void drawTriangles(GLsizei vertexCount) {
  if (!isSoftwareGl() || glFenceSync == nullptr) {
    glDrawArrays(GL_TRIANGLES, 0, vertexCount);
    return;
  }
  constexpr GLsizei kPiece = 3 << 15;
  constexpr std::size_t kPiecesAhead = 2;
  constexpr GLuint64 kOneSecond = 1'000'000'000;
  std::array<Sync, kPiecesAhead> drawn;
  std::size_t next = 0;
  for (GLsizei first = 0; first < vertexCount; first += kPiece) {
    if (const Sync earlier = std::move(drawn[next])) {
      glClientWaitSync(earlier.get(), GL_SYNC_FLUSH_COMMANDS_BIT, kOneSecond);
    }
    glDrawArrays(GL_TRIANGLES, first, std::min(kPiece, vertexCount - first));
    drawn[next] = Sync(glFenceSync(GL_SYNC_GPU_COMMANDS_COMPLETE, 0));
    next = (next + 1) % kPiecesAhead;
  }
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
  vertexCount_ = 0;
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
  vertexCount_ = static_cast<GLsizei>(cells * kVerticesPerCell);
  return {};
}

void SurfaceRenderer::draw(const ViewMatrices& matrices, const glm::vec3& eye, bool lit) const {
  glUseProgram(program_.name());
  setUniforms(matrices, eye, lit);
  glBindVertexArray(vertexArray_.name());
  useBuffer(kPosition, positions_);
  useBuffer(kColour, colours_);
  useBuffer(kNormal, normals_);
  drawTriangles(vertexCount_);
  for (const Attribute attribute : {kPosition, kColour, kNormal}) {
    glDisableVertexAttribArray(attribute);
  }
  glDisable(GL_CULL_FACE);
}

void SurfaceRenderer::setUniforms(const ViewMatrices& matrices, const glm::vec3& eye,
                                  bool lit) const {
  const auto vec3 = [this](const char* name, float x, float y, float z) {
    glUniform3f(program_.uniform(name), x, y, z);
  };
  const auto mat4 = [this](const char* name, const glm::mat4& matrix) {
    glUniformMatrix4fv(program_.uniform(name), 1, GL_FALSE, glm::value_ptr(matrix));
  };
  mat4("M", matrices.model);
  mat4("V", matrices.view);
  mat4("P", matrices.projection);
  glUniformMatrix3fv(program_.uniform("normalMatrix"), 1, GL_FALSE,
                     glm::value_ptr(matrices.normal));
  const float strength = lit ? 0.5F : 1.0F;
  vec3("ambient_lighting", strength, strength, strength);
  vec3("diffuse_lighting", strength, strength, strength);
  // Kept: the surface program knows no point light, so this names nothing and does nothing.
  if (lit) vec3("LightPos", 0.0F, 0.0F, 4.0F);
  vec3("LightDirection", 0.0F, 0.0F, -1.0F);
  vec3("specular_lighting", 1.0F, 1.0F, 1.0F);
  vec3("CameraPosition", eye.x, eye.y, eye.z);
  glUniform1f(program_.uniform("LightPower"), 0.5F);
  glUniform1f(program_.uniform("Shininess"), 32.0F);
}

}  // namespace morvane
