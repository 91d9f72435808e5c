#include "view/axes.h"

#include <array>
#include <glm/gtc/matrix_transform.hpp>
#include <glm/gtc/type_ptr.hpp>
#include <string_view>
#include <utility>

#include "base/debug_log.h"
#include "view/gl_state.h"
#include "view/shader_sources.h"

namespace morvane {
namespace {

// The three axes as lines of unit length, each stretched to its own length when drawn.
constexpr std::array<float, 18> kLines = {0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 1};
constexpr glm::vec4 kLineColour{0.1F, 0.1F, 0.1F, 1.0F};
constexpr glm::vec3 kLabelColour{0.0F, 0.0F, 0.0F};

}  // namespace

void Axes::generate() {
  program_ = ShaderProgram(kAxesShader);
  vertexArray_ = GlVertexArray::generate();
  positions_ = GlBuffer::generate();
  glBindVertexArray(vertexArray_.name());
  glBindBuffer(GL_ARRAY_BUFFER, positions_.name());
  glBufferData(GL_ARRAY_BUFFER, sizeof kLines, kLines.data(), GL_STATIC_DRAW);
  glEnableVertexAttribArray(0);
  glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
  glBindVertexArray(0);
  logStream() << "SIZEOF XYZ AXIS array : " << kLines.size() / 3 << '\n';
}

void Axes::draw(const ViewMatrices& matrices, const AxesRange& range) const {
  const AxisLines lines = axisLines(range);
  glUseProgram(program_.name());
  glUniformMatrix4fv(program_.uniform("M"), 1, GL_FALSE, glm::value_ptr(matrices.overlay));
  glUniform4fv(program_.uniform("colorOvrr"), 1, glm::value_ptr(kLineColour));
  glBindVertexArray(vertexArray_.name());
  const GlLineWidth thin(matrices.pixelRatio);
  const auto drawPart = [&](const glm::vec3& start, const glm::vec3& size, GLint first,
                            GLsizei count) {
    const glm::mat4 matrix = matrices.projection * matrices.view *
                             glm::scale(glm::translate(matrices.overlay, start), size);
    glUniformMatrix4fv(program_.uniform("MVP"), 1, GL_FALSE, glm::value_ptr(matrix));
    glDrawArrays(GL_LINES, first, count);
  };
  const float right = lines.endX.x - lines.corner.x;
  const float up = lines.endY.y - lines.corner.y;
  drawPart(lines.corner, {right, up, 1.0F}, 0, 4);
  drawPart(lines.bottom, {1.0F, 1.0F, lines.top.z - lines.bottom.z}, 4, 2);
  const ResHeader& header = *range.header;
  logStream() << "DIST: " << header.width * header.pixelSizeX << '\n'
              << "RES W: " << header.width << '\n'
              << "RES H: " << header.height << '\n'
              << "Pixelsize X: " << header.pixelSizeX << '\n'
              << "Pixelsize Y: " << header.pixelSizeY << '\n';
}

void Axes::drawLabels(const ViewMatrices& matrices, const AxesRange& range, int width, int height,
                      std::vector<ScreenQuad> taken, bool onlyFitting, TextRenderer& text) {
  const glm::mat4 toClip = matrices.projection * matrices.view * matrices.overlay;
  const TextWidth textWidth = [&text](std::string_view label, float scale) {
    return text.width(label, scale);
  };
  for (const AxisLabel& label :
       axisLabels(range, toClip, width, height, textWidth, std::move(taken), onlyFitting)) {
    const glm::mat4 plane =
        glm::scale(glm::translate(toClip, label.place), glm::vec3(kTextToModel));
    text.drawInSpace(label.text, plane, label.scale, kLabelColour);
  }
}

}  // namespace morvane
