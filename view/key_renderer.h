// The colour key at the right edge of the view.
#pragma once

#include "surface/colour_maps.h"
#include "view/gl_objects.h"
#include "view/shader_program.h"

namespace morvane {

/// All functions need a current GL context.
class KeyRenderer {
 public:
  /// Creates the key's shader program.
  void generateProgram();
  /// Creates its vertex array and buffers.
  void generateBuffers();
  /// Computes and uploads the key's geometry.
  void rebuild(const ColourMap& map);
  /// Draws the key over everything else.
  void draw() const;

  [[nodiscard]] bool usable() const { return program_.usable(); }

 private:
  ShaderProgram program_;
  GlVertexArray vertexArray_;
  GlBuffer positions_;
  GlBuffer colours_;
  GLsizei vertexCount_ = 0;
};

}  // namespace morvane
