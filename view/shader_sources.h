// The GLSL programs of the view.
#pragma once

#include "view/shader_program.h"

namespace morvane {

/// The lit, colour-coded surface. Attributes: 0 position, 1 colour, 2 normal.
extern const ShaderSource kSurfaceShader;
/// The same with the light computed for each vertex, for pictures in motion. A software GL draws it
/// in half the time. The colour is that of the vertices, or of the interpolated height.
extern const ShaderSource kCoarseShader;
extern const ShaderSource kCoarseHeightShader;
/// The same surface as points. Further attributes: 3 and 4, the other corners of the point's
/// triangle in its winding order.
extern const ShaderSource kPointShader;
/// Glyph quads. Attribute 0: position (xy) and texture coordinates (zw).
extern const ShaderSource kTextShader;
/// Unlit overlays in one colour, named after their users. Attributes: 0 position, 1 colour
/// (unused).
extern const ShaderSource kAxesShader;
extern const ShaderSource kProfileShader;
extern const ShaderSource kPinShader;
/// The colour key, drawn in clip space. Attributes: 3 position, 4 colour.
extern const ShaderSource kKeyShader;

}  // namespace morvane
