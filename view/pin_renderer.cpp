#include "view/pin_renderer.h"

#include <cstddef>
#include <glm/gtc/matrix_transform.hpp>
#include <glm/gtc/type_ptr.hpp>

#include "base/debug_log.h"
#include "view/gl_state.h"
#include "view/shader_sources.h"

namespace morvane {
namespace {

constexpr glm::vec4 kEdgeColour{1.0F, 1.0F, 1.0F, 1.0F};

constexpr std::size_t kCubeVertices = 36;
constexpr std::size_t kEdgeVertices = 24;
template <std::size_t count>
using Vertices = std::array<std::array<float, 3>, count>;

// Corners of a side in the plane of the two axes that follow the side's own axis. They are
// counter-clockwise, seen from outside, on the positive side.
constexpr std::array<std::array<float, 2>, 6> kSide = {
    {{-1, -1}, {1, -1}, {1, 1}, {-1, -1}, {1, 1}, {-1, 1}}};

constexpr Vertices<kCubeVertices> cube() {
  Vertices<kCubeVertices> vertices{};
  std::size_t next = 0;
  for (std::size_t axis = 0; axis < 3; ++axis) {
    for (const float sign : {-1.0F, 1.0F}) {
      for (const auto& corner : kSide) {
        auto& vertex = vertices[next++];
        vertex[axis] = sign;
        vertex[(axis + 1) % 3] =
            corner[0] * sign;  // mirrored on the far side, which reverses the winding
        vertex[(axis + 2) % 3] = corner[1];
      }
    }
  }
  return vertices;
}

constexpr Vertices<kEdgeVertices> edges() {
  Vertices<kEdgeVertices> vertices{};
  std::size_t next = 0;
  for (std::size_t axis = 0; axis < 3; ++axis) {
    for (const float u : {-1.0F, 1.0F}) {
      for (const float v : {-1.0F, 1.0F}) {
        for (const float end : {-1.0F, 1.0F}) {
          auto& vertex = vertices[next++];
          vertex[axis] = end;
          vertex[(axis + 1) % 3] = u;
          vertex[(axis + 2) % 3] = v;
        }
      }
    }
  }
  return vertices;
}

template <std::size_t count>
GlBuffer upload(GLuint attribute, const Vertices<count>& vertices) {
  GlBuffer buffer = GlBuffer::generate();
  glBindBuffer(GL_ARRAY_BUFFER, buffer.name());
  glBufferData(GL_ARRAY_BUFFER, sizeof vertices, vertices.data(), GL_STATIC_DRAW);
  glEnableVertexAttribArray(attribute);
  glVertexAttribPointer(attribute, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
  return buffer;
}

}  // namespace

void PinRenderer::generate() {
  program_ = ShaderProgram(kPinShader);
  logStream() << "PIN INIT::::<<< " << program_.name() << '\n';
  vertexArray_ = GlVertexArray::generate();
  glBindVertexArray(vertexArray_.name());
  positionBuffer_ = upload(0, cube());
  colourBuffer_ = upload(1, cube());
  edgeArray_ = GlVertexArray::generate();
  glBindVertexArray(edgeArray_.name());
  edgeBuffer_ = upload(0, edges());
  glBindVertexArray(0);
}

void PinRenderer::begin(const ViewMatrices& matrices, const Pin& box) const {
  const glm::mat4 model = glm::scale(pinMatrix(box, matrices.overlay), box.halfExtents);
  const glm::mat4 all = matrices.projection * matrices.view * model;
  glUseProgram(program_.name());
  glUniformMatrix4fv(program_.uniform("MVP"), 1, GL_FALSE, glm::value_ptr(all));
  glUniformMatrix4fv(program_.uniform("M"), 1, GL_FALSE, glm::value_ptr(model));
  setColour(box.colour);
  glBindVertexArray(vertexArray_.name());
}

void PinRenderer::setColour(const glm::vec4& colour) const {
  glUniform4fv(program_.uniform("colorOvrr"), 1, glm::value_ptr(colour));
}

void PinRenderer::drawPin(const ViewMatrices& matrices, const Pin& pin) const {
  begin(matrices, pin);
  glDrawArrays(GL_TRIANGLES, 0, kCubeVertices);
  // Without edges the faces of a box in one colour cannot be told apart.
  const GlDepthOrEqual orEqual;
  setColour(kEdgeColour);
  glBindVertexArray(edgeArray_.name());
  const GlLineWidth width(matrices.pixelRatio);
  glDrawArrays(GL_LINES, 0, kEdgeVertices);
}

void PinRenderer::drawTranslucent(const ViewMatrices& matrices, const Pin& box) const {
  begin(matrices, box);
  const GlBlending blending;
  const GlDepthReadOnly depthReadOnly;
  glDrawArrays(GL_TRIANGLES, 0, kCubeVertices);
}

}  // namespace morvane
