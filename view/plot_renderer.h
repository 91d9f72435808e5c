// The plot of a section, drawn into whatever context is current.
#pragma once

#include <span>
#include <string>

#include "geometry/profile_plot.h"
#include "geometry/profile_tool.h"
#include "view/gl_objects.h"
#include "view/shader_program.h"
#include "view/text_renderer.h"

namespace morvane {

/// All of it needs a current GL context.
class PlotRenderer {
 public:
  [[nodiscard]] bool generated() const { return program_.name() != 0; }
  /// Makes program and buffers; `fontPath` is the face of the numbers.
  void generate(const std::string& fontPath, int width, int height);
  /// Makes what no other context can see anew, in the current one; the context before is gone.
  void enterContext();

  /// Draws the section of `tool` over `width` × `height` units of a white background.
  void draw(ProfileTool& tool, int width, int height);
  /// Clears the window to the plot's background.
  static void drawNothing();

 private:
  void drawVertices(GLenum kind, std::span<const glm::vec2> vertices,
                    const glm::vec4& colour) const;

  ShaderProgram program_;
  GlVertexArray vertexArray_;
  GlBuffer vertices_;
  TextRenderer text_;
};

}  // namespace morvane
