// The axes of the surface with their names and lengths.
#pragma once

#include "geometry/camera.h"
#include "resfile/res_header.h"
#include "view/gl_objects.h"
#include "view/shader_program.h"
#include "view/text_renderer.h"

namespace morvane {

/// What the axes measure.
struct AxesRange {
  const ResHeader* header = nullptr;  ///< point counts and pixel sizes in mm
  float bottom = 0.0F;                ///< heights in µm
  float top = 0.0F;
  float heightToModel = 0.0F;  ///< model units per µm, as the surface is drawn
};

/// All of it needs a current GL context.
class Axes {
 public:
  /// Builds the lines and the program they are drawn with.
  void generate();

  /// Draws the lines beside the surface that `matrices` place.
  void draw(const ViewMatrices& matrices, const AxesRange& range) const;
  /// Draws names and lengths.
  static void drawLabels(const ViewMatrices& matrices, const AxesRange& range,
                         const TextRenderer& text);

 private:
  ShaderProgram program_;
  GlVertexArray vertexArray_;
  GlBuffer positions_;
};

}  // namespace morvane
