#include "view/surface_line.h"

#include <array>
#include <glm/gtc/type_ptr.hpp>
#include <utility>
#include <vector>

#include "geometry/surface_line.h"
#include "view/gl_state.h"
#include "view/shader_sources.h"

namespace morvane {
namespace {

constexpr glm::vec4 kRimColour{1.0F, 1.0F, 1.0F, 1.0F};
constexpr glm::vec4 kLineColour{0.0F, 0.0F, 0.0F, 1.0F};
constexpr float kRimWidth = 5.0F;   // pixels
constexpr float kLineWidth = 2.0F;  // pixels

}  // namespace

void SurfaceLineRenderer::generate() {
  program_ = ShaderProgram(kAxesShader);
  vertexArray_ = GlVertexArray::generate();
  vertices_ = GlBuffer::generate();
  glBindVertexArray(vertexArray_.name());
  glBindBuffer(GL_ARRAY_BUFFER, vertices_.name());
  glEnableVertexAttribArray(0);
  glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
  glBindVertexArray(0);
}

void SurfaceLineRenderer::draw(const ViewMatrices& matrices, std::span<const glm::vec3> line) {
  const glm::mat4 all = matrices.projection * matrices.view * matrices.overlay;
  std::array<GLint, 4> viewport{};
  glGetIntegerv(GL_VIEWPORT, viewport.data());
  LinePieces pieces = linePieces(line, all, viewport[2], viewport[3]);
  const auto ends = static_cast<GLsizei>(pieces.ends.size());
  const auto dots = static_cast<GLsizei>(pieces.dots.size());
  std::vector<glm::vec3>& vertices = pieces.ends;
  vertices.insert(vertices.end(), pieces.dots.begin(), pieces.dots.end());
  glUseProgram(program_.name());
  glUniformMatrix4fv(program_.uniform("MVP"), 1, GL_FALSE, glm::value_ptr(all));
  glUniformMatrix4fv(program_.uniform("M"), 1, GL_FALSE, glm::value_ptr(matrices.overlay));
  glBindVertexArray(vertexArray_.name());
  glBindBuffer(GL_ARRAY_BUFFER, vertices_.name());
  glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(vertices.size() * sizeof(glm::vec3)),
               vertices.data(), GL_STREAM_DRAW);
  const GlSwitch noDepth(GL_DEPTH_TEST, false);
  for (const auto& [lineWidth, colour] :
       {std::pair{kRimWidth, kRimColour}, {kLineWidth, kLineColour}}) {
    const GlLineWidth width(lineWidth);
    const GlPointSize dotSize(lineWidth);
    glUniform4fv(program_.uniform("colorOvrr"), 1, glm::value_ptr(colour));
    glDrawArrays(GL_LINES, 0, ends);
    glDrawArrays(GL_POINTS, ends, dots);
  }
}

}  // namespace morvane
