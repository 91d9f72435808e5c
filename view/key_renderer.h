// The colour key at the right edge of the view.
#pragma once

#include "view/gl_objects.h"
#include "view/shader_program.h"

namespace morvane {

/// All of it needs a current GL context.
class KeyRenderer {
 public:
  /// Makes the key's program.
  void generateProgram();
  /// Makes its vertex array and buffers.
  void generateBuffers();
  /// Builds the key's geometry anew and uploads it.
  void rebuild();
  /// Draws the key over whatever is there.
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
