// Draws the plot of a section into the current context.
#pragma once

#include <span>
#include <string>

#include "geometry/profile_plot.h"
#include "geometry/profile_tool.h"
#include "view/gl_objects.h"
#include "view/shader_program.h"
#include "view/text_renderer.h"

namespace morvane {

/// All functions need a current GL context.
class PlotRenderer {
 public:
  [[nodiscard]] bool generated() const { return program_.name() != 0; }
  /// Creates the shader program and the buffers. `fontPath` is the font of the numbers.
  void generate(const std::string& fontPath, int width, int height);
  /// Recreates objects that contexts do not share, after the previous context was destroyed.
  void enterContext();

  /// Draws the section of `tool` on a white background of `width` × `height` units, each of which
  /// is `pixelRatio` pixels wide. With `onlyTextsThatFit` the other texts are left out.
  void draw(ProfileTool& tool, int width, int height, float pixelRatio = 1.0F,
            bool onlyTextsThatFit = false);
  /// Draws the empty background.
  static void drawNothing();

 private:
  void drawCurve(std::span<const glm::vec2> curve, float width, glm::vec2 pixels, float pixelRatio,
                 const glm::vec4& colour) const;
  void drawVertices(GLenum kind, std::span<const glm::vec2> vertices,
                    const glm::vec4& colour) const;

  ShaderProgram program_;
  GlVertexArray vertexArray_;
  GlBuffer vertices_;
  TextRenderer text_;
};

}  // namespace morvane
