#include "view/plot_renderer.h"

#include <array>
#include <glm/gtc/type_ptr.hpp>
#include <vector>

#include "geometry/thick_line.h"
#include "view/gl_state.h"
#include "view/shader_sources.h"

namespace morvane {
namespace {

constexpr glm::vec4 kAxisColour{0.3F, 0.3F, 0.3F, 1.0F};
constexpr glm::vec4 kTickColour{1.0F, 0.0F, 0.0F, 0.0F};
constexpr glm::vec4 kLevelColour{0.85F, 0.85F, 0.85F, 1.0F};
constexpr glm::vec4 kCurveColour{0.0F, 0.25F, 0.65F, 1.0F};
constexpr glm::vec4 kClippedColour{0.9F, 0.1F, 0.0F, 1.0F};
constexpr glm::vec3 kTextColour{0.0F, 0.0F, 0.0F};
constexpr glm::vec3 kPaper{1.0F, 1.0F, 1.0F};

constexpr float kTickHalfLength = 0.02F;

/// The vertical axis, a bar to the left of the curve, as two triangles.
constexpr std::array<glm::vec2, 6> axisBar() {
  constexpr glm::vec2 kLow{plot::kLeft - plot::kAxisWidth, plot::kMiddle - plot::kHalfAxis};
  constexpr glm::vec2 kHigh{plot::kLeft, plot::kMiddle + plot::kHalfAxis};
  return {kLow, {kHigh.x, kLow.y}, kHigh, kLow, kHigh, {kLow.x, kHigh.y}};
}

constexpr std::array<glm::vec2, 2> kAxisLine = {
    {{plot::kLeft, plot::kMiddle}, {plot::kLeft + plot::kAxisLength, plot::kMiddle}}};

std::vector<glm::vec2> tickLines() {
  constexpr float kTickY = plot::kMiddle + kTickHalfLength;
  std::vector<glm::vec2> lines;
  for (int i = 0; i < plot::kTicks; ++i) {
    lines.emplace_back(plot::tickX(i), kTickY - kTickHalfLength);
    lines.emplace_back(plot::tickX(i), kTickY + kTickHalfLength);
  }
  return lines;
}

}  // namespace

void PlotRenderer::generate(const std::string& fontPath, int width, int height) {
  program_ = ShaderProgram(kProfileShader);
  vertices_ = GlBuffer::generate();
  text_.initialise(fontPath, static_cast<float>(width), static_cast<float>(height), kPaper);
}

void PlotRenderer::drawNothing() {
  glClearColor(kPaper.r, kPaper.g, kPaper.b, 1.0F);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

void PlotRenderer::enterContext() {
  text_.enterContext();
  vertexArray_.forget();
  vertexArray_ = GlVertexArray::generate();
  glBindVertexArray(vertexArray_.name());
  glBindBuffer(GL_ARRAY_BUFFER, vertices_.name());
  glEnableVertexAttribArray(0);
  glVertexAttribPointer(0, 2, GL_FLOAT, GL_FALSE, 0, nullptr);
}

void PlotRenderer::draw(ProfileTool& tool, int width, int height, float pixelRatio,
                        bool onlyTextsThatFit) {
  text_.setSpace(static_cast<float>(width), static_cast<float>(height), pixelRatio);
  const ProfileSurface& surface = tool.surface();
  const double pixelSize =
      pixelSizeAlong(placesOf(tool.pins()), surface.pixelSizeX, surface.pixelSizeY);
  const PlotData data{tool.section(),    surface.crop,     static_cast<float>(pixelSize),
                      surface.limitHigh, surface.limitLow, pixelRatio,
                      onlyTextsThatFit};
  const ProfilePlot plotted = layOutProfile(
      data, width, height,
      [this](std::string_view text, float scale) { return text_.width(text, scale); });
  const GlSwitch noDepth(GL_DEPTH_TEST, false);
  glUseProgram(program_.name());
  glUniformMatrix4fv(program_.uniform("M"), 1, GL_FALSE, glm::value_ptr(glm::mat4(1.0F)));
  glUniformMatrix4fv(program_.uniform("MVP"), 1, GL_FALSE, glm::value_ptr(glm::mat4(1.0F)));
  glBindVertexArray(vertexArray_.name());
  glBindBuffer(GL_ARRAY_BUFFER, vertices_.name());
  {
    const GlLineWidth thin(pixelRatio);
    drawVertices(GL_LINES, plotted.levels, kLevelColour);
    drawVertices(GL_TRIANGLES, axisBar(), kAxisColour);
    drawVertices(GL_LINES, kAxisLine, kAxisColour);
    drawVertices(GL_LINES, tickLines(), kTickColour);
  }
  const glm::vec2 pixels = glm::vec2(width, height) * pixelRatio;
  drawCurve(plotted.curve, 2.0F, pixels, pixelRatio, kCurveColour);
  drawCurve(plotted.clipped, 4.0F, pixels, pixelRatio, kClippedColour);
  for (const PlotText& text : plotted.texts) {
    text_.draw(text.text, text.place.x, text.place.y, text.scale, kTextColour);
  }
}

/// Draws a curve as wide as in the window.
void PlotRenderer::drawCurve(std::span<const glm::vec2> curve, float width, glm::vec2 pixels,
                             float pixelRatio, const glm::vec4& colour) const {
  if (pixelRatio <= 1.0F) {
    const GlLineWidth lineWidth(width);
    return drawVertices(GL_LINES, curve, colour);
  }
  std::vector<glm::vec4> ends;
  for (const glm::vec2& point : curve) ends.emplace_back(point, 0.0F, 1.0F);
  drawVertices(GL_TRIANGLES, thickLines(ends, pixels, width * pixelRatio), colour);
}

void PlotRenderer::drawVertices(GLenum kind, std::span<const glm::vec2> vertices,
                                const glm::vec4& colour) const {
  if (vertices.empty()) return;
  glUniform4fv(program_.uniform("colorOvrr"), 1, glm::value_ptr(colour));
  glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(vertices.size_bytes()), vertices.data(),
               GL_STREAM_DRAW);
  glDrawArrays(kind, 0, static_cast<GLsizei>(vertices.size()));
}

}  // namespace morvane
