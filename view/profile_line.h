// The profile line on the surface: from pin to pin along the heights that the section shows.
#pragma once

#include "geometry/camera.h"
#include "geometry/pin_motion.h"
#include "geometry/profile_section.h"
#include "view/gl_objects.h"
#include "view/shader_program.h"

namespace morvane {

/// All of it needs a current GL context.
class ProfileLine {
 public:
  /// Makes program and buffers.
  void generate();
  [[nodiscard]] bool generated() const { return program_.name() != 0; }

  /// Draws the line over everything else, so that no hill hides it: black with a white rim, which
  /// stands out on every colour. `heightToModel` is that of the surface drawn.
  void draw(const ViewMatrices& matrices, const ProfileSection& section, const PinPair& pins,
            float heightToModel);

 private:
  ShaderProgram program_;
  GlVertexArray vertexArray_;
  GlBuffer vertices_;
};

}  // namespace morvane
