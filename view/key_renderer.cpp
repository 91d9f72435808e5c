#include "view/key_renderer.h"

#include <vector>

#include "base/debug_log.h"
#include "surface/heat_map_scale.h"
#include "view/shader_sources.h"

namespace morvane {
namespace {

enum Attribute : GLuint { kPosition = 3, kColour = 4 };

void upload(Attribute attribute, const GlBuffer& buffer, const std::vector<float>& floats) {
  glBindBuffer(GL_ARRAY_BUFFER, buffer.name());
  glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(floats.size() * sizeof(float)),
               floats.data(), GL_DYNAMIC_DRAW);
  glEnableVertexAttribArray(attribute);
  glVertexAttribPointer(attribute, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
}

}  // namespace

void KeyRenderer::generateProgram() { program_ = ShaderProgram(kKeyShader); }

void KeyRenderer::generateBuffers() {
  vertexArray_ = GlVertexArray::generate();
  positions_ = GlBuffer::generate();
  colours_ = GlBuffer::generate();
}

void KeyRenderer::rebuild(const ColourMap& map) {
  logStream() << "BOUNDARIES: " << map.stops.size() << '\n';
  const KeyGeometry key = keyGeometry(map);
  glBindVertexArray(vertexArray_.name());
  upload(kPosition, positions_, key.positions);
  upload(kColour, colours_, key.colours);
  vertexCount_ = static_cast<GLsizei>(key.positions.size() / 3);
}

void KeyRenderer::draw() const {
  glUseProgram(program_.name());
  glBindVertexArray(vertexArray_.name());
  glDrawArrays(GL_TRIANGLES, 0, vertexCount_);
}

}  // namespace morvane
