#include "view/surface_line.h"

#include <array>
#include <glm/gtc/type_ptr.hpp>

#include "geometry/thick_line.h"
#include "view/gl_state.h"
#include "view/shader_sources.h"

namespace morvane {
namespace {

/// The rim and the line over it.
struct Layer {
  float width;  // pixels of the window
  glm::vec4 colour;
};
constexpr Layer kLayers[] = {{5.0F, {1.0F, 1.0F, 1.0F, 1.0F}}, {2.0F, {0.0F, 0.0F, 0.0F, 1.0F}}};

}  // namespace

void SurfaceLineRenderer::generate() {
  program_ = ShaderProgram(kAxesShader);
  vertexArray_ = GlVertexArray::generate();
  vertices_ = GlBuffer::generate();
  glBindVertexArray(vertexArray_.name());
  glBindBuffer(GL_ARRAY_BUFFER, vertices_.name());
  glEnableVertexAttribArray(0);
  glBindVertexArray(0);
}

void SurfaceLineRenderer::draw(const ViewMatrices& matrices, std::span<const glm::vec3> line) {
  const glm::mat4 all = matrices.projection * matrices.view * matrices.overlay;
  std::array<GLint, 4> viewport{};
  glGetIntegerv(GL_VIEWPORT, viewport.data());
  const LinePieces pieces = linePieces(line, all, viewport[2], viewport[3]);
  glUseProgram(program_.name());
  glUniformMatrix4fv(program_.uniform("M"), 1, GL_FALSE, glm::value_ptr(matrices.overlay));
  glBindVertexArray(vertexArray_.name());
  glBindBuffer(GL_ARRAY_BUFFER, vertices_.name());
  const GlSwitch noDepth(GL_DEPTH_TEST, false);
  if (matrices.pixelRatio > 1.0F) {
    drawThick(pieces, all, glm::vec2(viewport[2], viewport[3]), matrices.pixelRatio);
  } else {
    drawThin(pieces, all);
  }
}

void SurfaceLineRenderer::drawThin(const LinePieces& pieces, const glm::mat4& toClip) const {
  std::vector<glm::vec3> vertices = pieces.ends;
  vertices.insert(vertices.end(), pieces.dots.begin(), pieces.dots.end());
  upload(vertices, toClip);
  for (const auto& [pixels, colour] : kLayers) {
    const GlLineWidth width(pixels);
    const GlPointSize dotSize(pixels);
    glUniform4fv(program_.uniform("colorOvrr"), 1, glm::value_ptr(colour));
    glDrawArrays(GL_LINES, 0, static_cast<GLsizei>(pieces.ends.size()));
    glDrawArrays(GL_POINTS, static_cast<GLint>(pieces.ends.size()),
                 static_cast<GLsizei>(pieces.dots.size()));
  }
}

void SurfaceLineRenderer::drawThick(const LinePieces& pieces, const glm::mat4& toClip,
                                    glm::vec2 size, float pixelRatio) const {
  std::vector<glm::vec4> ends;
  for (const glm::vec3& end : pieces.ends) ends.push_back(toClip * glm::vec4(end, 1.0F));
  for (const glm::vec3& dot : pieces.dots)
    ends.insert(ends.end(), 2, toClip * glm::vec4(dot, 1.0F));
  for (const auto& [pixels, colour] : kLayers) {
    const std::vector<glm::vec2> triangles = thickLines(ends, size, pixels * pixelRatio);
    upload(triangles, glm::mat4(1.0F));
    glUniform4fv(program_.uniform("colorOvrr"), 1, glm::value_ptr(colour));
    glDrawArrays(GL_TRIANGLES, 0, static_cast<GLsizei>(triangles.size()));
  }
}

template <typename Point>
void SurfaceLineRenderer::upload(const std::vector<Point>& points, const glm::mat4& toClip) const {
  glUniformMatrix4fv(program_.uniform("MVP"), 1, GL_FALSE, glm::value_ptr(toClip));
  glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(points.size() * sizeof(Point)),
               points.data(), GL_STREAM_DRAW);
  glVertexAttribPointer(0, Point::length(), GL_FLOAT, GL_FALSE, 0, nullptr);
}

}  // namespace morvane
