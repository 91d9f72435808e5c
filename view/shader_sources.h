// The GLSL programs of the view.
#pragma once

#include "view/shader_program.h"

namespace morvane {

/// The lit, colour-coded surface. Attributes: 0 position, 1 colour, 2 normal.
extern const ShaderSource kSurfaceShader;
/// The colour key, drawn in clip space. Attributes: 3 position, 4 colour.
extern const ShaderSource kKeyShader;

}  // namespace morvane
