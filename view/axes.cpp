#include "view/axes.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <glm/gtc/matrix_transform.hpp>
#include <glm/gtc/type_ptr.hpp>
#include <iostream>
#include <string>

#include "base/number_text.h"
#include "surface/mesh.h"
#include "view/shader_sources.h"

namespace morvane {
namespace {

// The three axes as lines of unit length, each stretched to its own length when drawn.
constexpr std::array<float, 18> kLines = {0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 1};
constexpr glm::vec4 kLineColour{0.1F, 0.1F, 0.1F, 1.0F};
constexpr glm::vec3 kLabelColour{0.0F, 0.0F, 0.0F};

constexpr float kLineGap = 0.02F;    // between the surface and the lines beside it
constexpr float kLabelGap = 0.05F;   // between the surface and the labels beside it
constexpr float kHeightGap = 0.2F;   // between the surface and the labels of its heights
constexpr float kLetterGap = 0.01F;  // between a label and a line
constexpr float kTextScale = 0.8F;
constexpr float kTextToModel = 0.001F;

struct Label {
  glm::vec3 place;
  std::string text;
};

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
  std::cout << "SIZEOF XYZ AXIS array : " << kLines.size() / 3 << '\n';
}

void Axes::draw(const ViewMatrices& matrices, const AxesRange& range) const {
  const float width = static_cast<float>(range.header->width) / kPointsPerUnit;
  const float height = static_cast<float>(range.header->height) / kPointsPerUnit;
  const float bottom = range.bottom * range.heightToModel;
  const float top = range.top * range.heightToModel;
  glUseProgram(program_.name());
  glUniformMatrix4fv(program_.uniform("M"), 1, GL_FALSE, glm::value_ptr(matrices.overlay));
  glUniform4fv(program_.uniform("colorOvrr"), 1, glm::value_ptr(kLineColour));
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  glBindVertexArray(vertexArray_.name());
  const auto drawPart = [&](float z, const glm::vec3& size, GLint first, GLsizei count) {
    const glm::mat4 start = glm::translate(glm::mat4(1.0F), glm::vec3(-kLineGap, -kLineGap, z));
    const glm::mat4 matrix =
        matrices.projection * matrices.view * matrices.overlay * glm::scale(start, size);
    glUniformMatrix4fv(program_.uniform("MVP"), 1, GL_FALSE, glm::value_ptr(matrix));
    glDrawArrays(GL_LINES, first, count);
  };
  drawPart(0.0F, {width + kLineGap, height + kLineGap - kLetterGap, 1.0F}, 0, 4);
  drawPart(bottom, {1.0F, 1.0F, top - bottom}, 4, 2);
  const ResHeader& header = *range.header;
  std::cout << "DIST: " << header.width * header.pixelSizeX << '\n'
            << "RES W: " << header.width << '\n'
            << "RES H: " << header.height << '\n'
            << "Pixelsize X: " << header.pixelSizeX << '\n'
            << "Pixelsize Y: " << header.pixelSizeY << '\n';
}

void Axes::drawLabels(const ViewMatrices& matrices, const AxesRange& range,
                      const TextRenderer& text) {
  const ResHeader& header = *range.header;
  const float width = static_cast<float>(header.width) / kPointsPerUnit;
  const float height = static_cast<float>(header.height) / kPointsPerUnit;
  const double lengthX = header.width * header.pixelSizeX;
  const double lengthY = header.height * header.pixelSizeY;

  const float bottom = range.bottom * range.heightToModel;
  const float top = range.top * range.heightToModel;
  const std::string topText = shownText(range.top, 2) + "µm";
  const std::string bottomText = shownText(range.bottom, 2) + "µm";
  // Long ones stand further out, so that they end before the lines.
  const auto besideLines = [&text](const std::string& label) {
    const float labelWidth = text.width(label, kTextScale) * kTextToModel;
    return std::min(-kHeightGap, -kLineGap - kLetterGap - labelWidth);
  };
  const std::array<Label, 7> labels = {{
      {{width / 2, -kLabelGap, 0}, "X"},
      {{-kLabelGap, height / 2, 0}, "Y"},
      {{-kHeightGap, height, 0}, "Z"},
      {{width, -kLabelGap, 0}, shownText(lengthX, 2) + "mm"},
      {{-kLabelGap, height, 0}, shownText(lengthY, 2) + "mm"},
      // A line of text higher than the one below it, so that both are readable from above too.
      {{besideLines(topText), kLabelGap, top}, topText},
      {{besideLines(bottomText), 0, bottom}, bottomText},
  }};
  for (const Label& label : labels) {
    const glm::mat4 plane =
        glm::scale(glm::translate(glm::mat4(1.0F), label.place), glm::vec3(kTextToModel));
    text.drawInSpace(label.text, matrices.projection * matrices.view * matrices.overlay * plane,
                     kTextScale, kLabelColour);
  }
}

}  // namespace morvane
