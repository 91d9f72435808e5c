#include "view/surface_renderer.h"

#include <algorithm>
#include <glm/gtc/type_ptr.hpp>
#include <utility>
#include <vector>

#include "view/gl_driver.h"
#include "view/shader_sources.h"
#include "view/stopwatch.h"

namespace morvane {
namespace {

enum Attribute : GLuint { kPosition = 0, kColour = 1, kNormal = 2, kNextCorner, kLastCorner };

/// Reads an attribute from a buffer of three floats a vertex, starting at vertex `first`, with a
/// stride of `step` vertices.
void useBuffer(Attribute attribute, GLuint buffer, std::size_t first = 0, std::size_t step = 1) {
  constexpr std::size_t kVertexBytes = 3 * sizeof(float);
  glEnableVertexAttribArray(attribute);
  glBindBuffer(GL_ARRAY_BUFFER, buffer);
  glVertexAttribPointer(attribute, 3, GL_FLOAT, GL_FALSE, static_cast<GLsizei>(step * kVertexBytes),
                        // NOLINTNEXTLINE(performance-no-int-to-ptr): an offset, as GL wants it
                        reinterpret_cast<const void*>(first * kVertexBytes));
}

// Of the time of a piece.
constexpr double kShortPiece = 1.0;  // milliseconds
constexpr double kLongPiece = 12.0;

void setUniforms(const ShaderProgram& program, const ViewMatrices& matrices, const glm::vec3& eye,
                 const SurfaceLook& look) {
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
  const float strength = look.lit ? 0.5F : 1.0F;
  vec3("ambient_lighting", strength, strength, strength);
  vec3("diffuse_lighting", strength, strength, strength);
  // Kept: the surface shader has no point light, so this has no effect.
  if (look.lit) vec3("LightPos", 0.0F, 0.0F, 4.0F);
  vec3("LightDirection", look.light.x, look.light.y, look.light.z);
  vec3("specular_lighting", 1.0F, 1.0F, 1.0F);
  vec3("CameraPosition", eye.x, eye.y, eye.z);
  glUniform1f(program.uniform("LightPower"), 0.5F);
  glUniform1f(program.uniform("Shininess"), 32.0F);
}

}  // namespace

void SurfaceRenderer::generate() {
  vertexArray_ = GlVertexArray::generate();
  list_.generate();
  program_ = ShaderProgram(kSurfaceShader);
  coarseHeightProgram_ = ShaderProgram(kCoarseHeightShader);
}

void SurfaceRenderer::beginFull(const SurfaceModel& model, const BitmapDrape* drape) {
  substitute_.empty();
  trouble_.clear();
  glBindVertexArray(vertexArray_.name());
  std::string reason = list_.begin(model);
  if (!reason.empty()) buildSubstitute(model, drape, std::move(reason));
}

bool SurfaceRenderer::advanceFull(const SurfaceModel& model, const BitmapDrape* drape) {
  glBindVertexArray(vertexArray_.name());
  std::string reason = list_.advance(model, drape);
  if (!reason.empty()) buildSubstitute(model, drape, std::move(reason));
  return !list_.unfinished();
}

void SurfaceRenderer::buildSubstitute(const SurfaceModel& model, const BitmapDrape* drape,
                                      std::string reason) {
  list_.empty();
  const HeightGrid& grid = *model.shown();
  std::size_t step = 1;
  do {
    ++step;
    if (substitute_.build(model, drape, step)) return;
  } while (step < std::max(grid.width(), grid.height()));
  trouble_ = std::move(reason);
}

void SurfaceRenderer::buildCoarse(const SurfaceModel& model, const BitmapDrape* drape,
                                  std::size_t step) {
  glBindVertexArray(vertexArray_.name());
  (void)coarse_.build(model, drape, step);
  coarseByHeight_ = model.heatMap;
  if (coarseByHeight_) coarseColours_.make(model.colourScale());
}

void SurfaceRenderer::beginDrawing(Detail detail) {
  progress_ = {detail, 0, 0};
  drawn_ = {};
}

bool SurfaceRenderer::advanceDrawing(const ViewMatrices& matrices, const glm::vec3& eye,
                                     const SurfaceLook& look, double milliseconds) {
  const Stopwatch watch;
  setUniforms(program(look.filled), matrices, eye, look);
  if (progress_.detail == Detail::kCoarse && coarseByHeight_) useCoarseColours();
  glBindVertexArray(vertexArray_.name());
  const std::vector<Run> all = runs(look.filled);
  while (progress_.run < all.size()) {
    const Run& run = all[progress_.run];
    attach(run, look.filled);
    while (progress_.first < run.count && watch.milliseconds() < milliseconds) drawPiece(run);
    detach();
    if (progress_.first < run.count) return false;
    ++progress_.run;
    progress_.first = 0;
  }
  return true;
}

void SurfaceRenderer::useCoarseColours() const {
  glUniform1f(coarseHeightProgram_.uniform("lowest"), coarseColours_.lowest());
  glUniform1f(coarseHeightProgram_.uniform("perUnit"), coarseColours_.perUnit());
  glBindTexture(GL_TEXTURE_2D, coarseColours_.name());
}

const ShaderProgram& SurfaceRenderer::program(bool filled) {
  const auto created = [](ShaderProgram& program, const ShaderSource& source) -> ShaderProgram& {
    if (program.name() == 0) program = ShaderProgram(source);
    return program;
  };
  if (!filled) return created(pointProgram_, kPointShader);
  if (progress_.detail == Detail::kFull) return program_;
  return coarseByHeight_ ? coarseHeightProgram_ : created(coarseProgram_, kCoarseShader);
}

const IndexedSurface* SurfaceRenderer::indexed() const {
  if (progress_.detail == Detail::kCoarse) return &coarse_;
  return substitute_.step() > 0 ? &substitute_ : nullptr;
}

std::vector<SurfaceRenderer::Run> SurfaceRenderer::runs(bool filled) const {
  using Source = Run::Source;
  if (const IndexedSurface* mesh = indexed()) {
    if (filled) return {{Source::kCorners, GL_TRIANGLES, mesh->corners()}};
    return {{Source::kArrays, GL_POINTS, mesh->vertices()}};
  }
  const std::size_t cells = list_.columns() * list_.rows();
  if (filled) return {{Source::kArrays, GL_TRIANGLES, cells * kVerticesPerCell}};
  std::vector<Run> result;
  if (cells == 0) return result;
  for (const PointRun& points : pointRuns(list_.columns(), list_.rows())) {
    // A stride of whole rows may exceed the largest stride that GL allows.
    const Source source = points.step == 1 ? Source::kArrays : Source::kStrided;
    result.push_back({source, GL_POINTS, points.count, points});
  }
  return result;
}

void SurfaceRenderer::attach(const Run& run, bool filled) const {
  if (const IndexedSurface* mesh = indexed()) {
    useBuffer(kPosition, mesh->positions());
    useBuffer(kColour, mesh->colours());
    useBuffer(kNormal, mesh->normals());
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, mesh->cornerBuffer());
    return;
  }
  const std::size_t vertex = run.points.vertex;
  const std::size_t step = filled ? 1 : kVerticesPerCell;
  const GLuint positions = list_.positions().name();
  useBuffer(kPosition, positions, vertex, step);
  useBuffer(kColour, list_.colours().name(), vertex, step);
  useBuffer(kNormal, list_.normals().name(), vertex, step);
  if (filled) return;
  const std::size_t triangle = vertex - vertex % 3;
  useBuffer(kNextCorner, positions, triangle + (vertex + 1) % 3, step);
  useBuffer(kLastCorner, positions, triangle + (vertex + 2) % 3, step);
}

void SurfaceRenderer::detach() {
  for (const Attribute attribute : {kPosition, kColour, kNormal, kNextCorner, kLastCorner}) {
    glDisableVertexAttribArray(attribute);
  }
  glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
}

void SurfaceRenderer::drawPiece(const Run& run) {
  constexpr GLuint64 kOneSecond = 1'000'000'000;
  const Stopwatch watch;
  const Sync earlier = std::move(drawn_[next_]);
  if (earlier) {
    glClientWaitSync(earlier.get(), GL_SYNC_FLUSH_COMMANDS_BIT, kOneSecond);
  }
  const std::size_t wanted = run.kind == GL_TRIANGLES ? 3 * inPiece_ : inPiece_;
  const std::size_t count = std::min(wanted, run.count - progress_.first);
  const auto first = static_cast<GLint>(progress_.first);
  const auto number = static_cast<GLsizei>(count);
  if (run.source == Run::Source::kArrays) {
    glDrawArrays(run.kind, first, number);
  } else if (run.source == Run::Source::kCorners) {
    glDrawElements(run.kind, number, GL_UNSIGNED_INT,
                   // NOLINTNEXTLINE(performance-no-int-to-ptr): an offset, as GL wants it
                   reinterpret_cast<const void*>(progress_.first * sizeof(GLuint)));
  } else {
    std::vector<GLuint> cells(count);
    for (std::size_t i = 0; i < count; ++i) {
      cells[i] = static_cast<GLuint>((progress_.first + i) * run.points.step);
    }
    glDrawElements(run.kind, number, GL_UNSIGNED_INT, cells.data());
  }
  progress_.first += count;
  if (glFenceSync == nullptr) return;
  drawn_[next_] = Sync(glFenceSync(GL_SYNC_GPU_COMMANDS_COMPLETE, 0));
  next_ = (next_ + 1) % drawn_.size();
  // With two pieces under way, a piece takes as long as the wait for the one before the last.
  const double took = watch.milliseconds();
  if (!earlier || count < wanted) return;
  if (took < kShortPiece) inPiece_ = std::min(2 * inPiece_, kMostInPiece);
  if (took > kLongPiece) inPiece_ = std::max(inPiece_ / 2, kFewestInPiece);
}

}  // namespace morvane
