// The axes of the surface with their names and lengths.
#pragma once

#include "geometry/axis_labels.h"
#include "geometry/camera.h"
#include "view/gl_objects.h"
#include "view/shader_program.h"
#include "view/text_renderer.h"

namespace morvane {

/// All functions need a current GL context.
class Axes {
 public:
  /// Creates the lines and their shader program.
  void generate();

  /// Draws the lines beside the surface.
  void draw(const ViewMatrices& matrices, const AxesRange& range) const;
  /// Draws names, lengths and heights in a window of `width` × `height` pixels. They avoid the
  /// `taken` area. With `onlyFitting`, those that cannot are left out.
  static void drawLabels(const ViewMatrices& matrices, const AxesRange& range, int width,
                         int height, std::vector<ScreenQuad> taken, bool onlyFitting,
                         TextRenderer& text);

 private:
  ShaderProgram program_;
  GlVertexArray vertexArray_;
  GlBuffer positions_;
};

}  // namespace morvane
