#include "view/profile_line.h"

#include <cmath>
#include <glm/gtc/type_ptr.hpp>
#include <vector>

#include "view/shader_sources.h"

namespace morvane {
namespace {

constexpr glm::vec4 kRimColour{1.0F, 1.0F, 1.0F, 1.0F};
constexpr glm::vec4 kLineColour{0.0F, 0.0F, 0.0F, 1.0F};
constexpr float kRimWidth = 5.0F;   // pixels
constexpr float kLineWidth = 2.0F;  // pixels

/// Pairs of neighbouring samples, in the space of the pins; none across a gap.
std::vector<glm::vec3> linePieces(const ProfileSection& section, const PinPair& pins,
                                  float heightToModel) {
  std::vector<glm::vec3> pieces;
  const auto& samples = section.samples;
  const std::vector<std::size_t> drawn = drawnSamples(section);
  pieces.reserve(2 * drawn.size());
  const glm::vec2 way(pins.b - pins.a);
  const auto point = [&](std::size_t i) {
    const float part = static_cast<float>(i) / static_cast<float>(samples.size());
    return glm::vec3(glm::vec2(pins.a) + way * part, samples[i].y * heightToModel);
  };
  for (std::size_t i = 1; i < drawn.size(); ++i) {
    if (std::isnan(samples[drawn[i - 1]].y) || std::isnan(samples[drawn[i]].y)) continue;
    pieces.push_back(point(drawn[i - 1]));
    pieces.push_back(point(drawn[i]));
  }
  return pieces;
}

}  // namespace

void ProfileLine::generate() {
  program_ = ShaderProgram(kAxesShader);
  vertexArray_ = GlVertexArray::generate();
  vertices_ = GlBuffer::generate();
  glBindVertexArray(vertexArray_.name());
  glBindBuffer(GL_ARRAY_BUFFER, vertices_.name());
  glEnableVertexAttribArray(0);
  glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
  glBindVertexArray(0);
}

void ProfileLine::draw(const ViewMatrices& matrices, const ProfileSection& section,
                       const PinPair& pins, float heightToModel) {
  const std::vector<glm::vec3> pieces = linePieces(section, pins, heightToModel);
  if (pieces.empty()) return;
  const glm::mat4 all = matrices.projection * matrices.view * matrices.overlay;
  glUseProgram(program_.name());
  glUniformMatrix4fv(program_.uniform("MVP"), 1, GL_FALSE, glm::value_ptr(all));
  glUniformMatrix4fv(program_.uniform("M"), 1, GL_FALSE, glm::value_ptr(matrices.overlay));
  glBindVertexArray(vertexArray_.name());
  glBindBuffer(GL_ARRAY_BUFFER, vertices_.name());
  glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(pieces.size() * sizeof pieces[0]),
               pieces.data(), GL_STREAM_DRAW);
  glDisable(GL_DEPTH_TEST);
  for (const auto& [lineWidth, colour] :
       {std::pair{kRimWidth, kRimColour}, {kLineWidth, kLineColour}}) {
    glLineWidth(lineWidth);
    glUniform4fv(program_.uniform("colorOvrr"), 1, glm::value_ptr(colour));
    glDrawArrays(GL_LINES, 0, static_cast<GLsizei>(pieces.size()));
  }
  glLineWidth(1.0F);
  glEnable(GL_DEPTH_TEST);
}

}  // namespace morvane
