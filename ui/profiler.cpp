#include "ui/profiler.h"

#include <array>
#include <glm/gtc/type_ptr.hpp>
#include <iostream>
#include <new>
#include <utility>

#include "base/paths.h"
#include "ui/gl_mode.h"
#include "view/gl_driver.h"
#include "view/shader_sources.h"

namespace morvane {
namespace {

constexpr glm::vec4 kFirstPinColour{1.0F, 0.0F, 1.0F, 1.0F};
constexpr glm::vec4 kSecondPinColour{0.0F, 0.0F, 0.0F, 1.0F};

constexpr glm::vec4 kAxisColour{0.3F, 0.3F, 0.3F, 1.0F};
constexpr glm::vec4 kTickColour{1.0F, 0.0F, 0.0F, 0.0F};
constexpr glm::vec4 kLevelColour{0.85F, 0.85F, 0.85F, 1.0F};
constexpr glm::vec4 kCurveColour{0.0F, 0.25F, 0.65F, 1.0F};
constexpr glm::vec4 kClippedColour{0.9F, 0.1F, 0.0F, 1.0F};
constexpr glm::vec3 kTextColour{0.0F, 0.0F, 0.0F};
constexpr glm::vec3 kPaper{1.0F, 1.0F, 1.0F};

constexpr float kTickHalfLength = 0.02F;

/// The vertical axis, a bar left of the curve's room, as two triangles.
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

Profiler::Profiler(int x, int y, int w, int h, const char* label) : GlPane(x, y, w, h, label) {
  mode(kGlMode);
  end();
  hide();
}

GridSize Profiler::gridSize() const {
  if (!surface_.heights) return {};
  return {surface_.heights->width(), surface_.heights->height()};
}

ProfileClip Profiler::clip() const {
  return {.on = surface_.crop.on, .low = surface_.crop.min, .high = surface_.crop.max};
}

void Profiler::setSurface(ProfileSurface surface) {
  surface_ = std::move(surface);
  placePins(pins_, clampedToGrid(placesOf(pins_), gridSize()));
  refresh();
}

void Profiler::loadPins() {
  std::cout << "loading pins....\n";
  pins_[0].colour = kFirstPinColour;
  pins_[1].colour = kSecondPinColour;
  pinsExist_ = true;
  placeInFirstColumn();
}

void Profiler::resetPins() {
  if (pinsExist_) placeInFirstColumn();
}

void Profiler::placeInFirstColumn() {
  const PinSize size = pinSize(gridSize().width);
  for (Pin& pin : pins_) pin.halfExtents = size.halfExtents;
  placePins(pins_, profilePins(gridSize()));
  refresh();
}

void Profiler::movePin(glm::vec2 motion, bool wholeLine) {
  if (wholeLine) {
    placePins(pins_, movePins(placesOf(pins_), motion, gridSize()));
  } else {
    grabbedPin_->position = morvane::movePin(grabbedPin_->position, motion, gridSize());
  }
  refresh();
}

void Profiler::swapPins() {
  placePins(pins_, swapped(placesOf(pins_)));
  refresh();
}

void Profiler::refresh() {
  needsRecompute_ = true;
  redraw();
}

const ProfileSection& Profiler::section() {
  if (std::exchange(needsRecompute_, false)) {
    section_ = {};
    try {
      if (pinsExist_ && surface_.heights) {
        section_ = sampleProfile(*surface_.heights, placesOf(pins_), clip());
      }
    } catch (const std::bad_alloc&) {
      std::cout << "There is not enough memory for this section.\n";
    }
  }
  return section_;
}

void Profiler::generateBuffers() {
  program_ = ShaderProgram(kProfileShader);
  vertices_ = GlBuffer::generate();
  text_.initialise(resourcePath(exeFolder, "Fonts", "arial.ttf"), static_cast<float>(w()),
                   static_cast<float>(h()), kPaper);
}

void Profiler::enterContext() {
  text_.enterContext();
  vertexArray_.forget();
  vertexArray_ = GlVertexArray::generate();
  glBindVertexArray(vertexArray_.name());
  glBindBuffer(GL_ARRAY_BUFFER, vertices_.name());
  glEnableVertexAttribArray(0);
  glVertexAttribPointer(0, 2, GL_FLOAT, GL_FALSE, 0, nullptr);
}

void Profiler::draw() {
  glClearColor(kPaper.r, kPaper.g, kPaper.b, 1.0F);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  if (glGenVertexArrays == nullptr) return;
  if (program_.name() == 0) generateBuffers();
  // Hiding the window takes its context away; only what the view shares is left.
  if (!context_valid()) enterContext();
  glViewport(0, 0, pixel_w(), pixel_h());
  glEnable(GL_MULTISAMPLE);
  glDisable(GL_DEPTH_TEST);
  drawPlot();
  checkGl("profile");
}

void Profiler::drawPlot() {
  text_.setSpace(static_cast<float>(w()), static_cast<float>(h()));
  const PlotData data{section(), clip(),
                      pixelSizeAlong(placesOf(pins_), surface_.pixelSizeX, surface_.pixelSizeY),
                      surface_.limitHigh, surface_.limitLow};
  const ProfilePlot plotted = layOutProfile(
      data, w(), h(),
      [this](std::string_view text, float scale) { return text_.width(text, scale); });
  glUseProgram(program_.name());
  glUniformMatrix4fv(program_.uniform("M"), 1, GL_FALSE, glm::value_ptr(glm::mat4(1.0F)));
  glUniformMatrix4fv(program_.uniform("MVP"), 1, GL_FALSE, glm::value_ptr(glm::mat4(1.0F)));
  glBindVertexArray(vertexArray_.name());
  glBindBuffer(GL_ARRAY_BUFFER, vertices_.name());
  glLineWidth(1.0F);
  drawVertices(GL_LINES, plotted.levels, kLevelColour);
  drawVertices(GL_TRIANGLES, axisBar(), kAxisColour);
  drawVertices(GL_LINES, kAxisLine, kAxisColour);
  drawVertices(GL_LINES, tickLines(), kTickColour);
  glLineWidth(2.0F);
  drawVertices(GL_LINES, plotted.curve, kCurveColour);
  glLineWidth(4.0F);
  drawVertices(GL_LINES, plotted.clipped, kClippedColour);
  for (const PlotText& text : plotted.texts) {
    text_.draw(text.text, text.place.x, text.place.y, text.scale, kTextColour);
  }
}

void Profiler::drawVertices(GLenum kind, std::span<const glm::vec2> vertices,
                            const glm::vec4& colour) const {
  if (vertices.empty()) return;
  glUniform4fv(program_.uniform("colorOvrr"), 1, glm::value_ptr(colour));
  glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(vertices.size_bytes()), vertices.data(),
               GL_STREAM_DRAW);
  glDrawArrays(kind, 0, static_cast<GLsizei>(vertices.size()));
}

}  // namespace morvane
