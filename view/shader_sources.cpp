#include "view/shader_sources.h"

namespace morvane {
namespace {

constexpr const char* kOverlayVertex = R"(#version 300 es
precision highp float;

layout(location = 0) in vec3 vertexPosition;
layout(location = 1) in vec3 vertexColor;

uniform mat4 MVP;
uniform mat4 M;

out vec3 fragmentColor;

void main() {
  gl_Position = MVP * vec4(vertexPosition, 1.0);
  fragmentColor = vertexColor;
}
)";

constexpr const char* kOverlayFragment = R"(#version 300 es
precision highp float;

in vec3 fragmentColor;
uniform vec4 colorOvrr;
out vec4 color;

void main() { color = colorOvrr; }
)";

}  // namespace

const ShaderSource kAxesShader = {"PIN/GRIDVS", "PIN/GRIDFS", kOverlayVertex, kOverlayFragment};
const ShaderSource kProfileShader = {"PIN/PROFILEVS", "PIN/PROFILEFS", kOverlayVertex,
                                     kOverlayFragment};
const ShaderSource kPinShader = {"PINVS", "PINFS", kOverlayVertex, kOverlayFragment};

const ShaderSource kTextShader = {"TextVS", "TextFS",
                                  R"(#version 300 es
precision highp float;

layout(location = 0) in vec4 vertex;
uniform mat4 projection;
out vec2 place;

void main() {
  gl_Position = projection * vec4(vertex.xy, 0.0, 1.0);
  place = vertex.zw;
}
)",
                                  R"(#version 300 es
precision highp float;

in vec2 place;
uniform sampler2D text;
uniform vec3 textCol;
uniform float thickening;  // of glyphs drawn smaller than they were rasterised
out vec4 color;

// How much of the pixel the glyph covers. In small text a pixel covers up to four texels each way; a
// single sample of the texture could miss thin strokes. The number of samples is fixed: a software
// GL is slow in loops that end at different times.
float coverage() {
  vec2 right = dFdx(place);
  vec2 up = dFdy(place);
  vec2 size = vec2(textureSize(text, 0));
  float texels = max(length(right * size), length(up * size));
  float part = texels < 1.5 ? 0.0 : 1.0 / 3.0;
  float sum = 0.0;
  for (int i = -1; i <= 1; ++i) {
    for (int j = -1; j <= 1; ++j) {
      sum += texture(text, place + part * (float(i) * right + float(j) * up)).r;
    }
  }
  return 1.0 - pow(1.0 - sum / 9.0, thickening);
}

void main() { color = vec4(textCol, 1.0) * vec4(1.0, 1.0, 1.0, coverage()); }
)"};

namespace {

constexpr const char* kSurfaceVertex = R"(#version 300 es
precision highp float;

layout(location = 0) in vec3 vertexPosition;
layout(location = 1) in vec3 vertexColor;
layout(location = 2) in vec3 vertexNormals;

uniform mat4 M;
uniform mat4 V;
uniform mat4 P;
uniform mat3 normalMatrix;  // transpose(inverse(M)), computed per frame, not per vertex

out vec3 fragmentColor;
out vec3 vsPosition;
out vec3 vsNormal;

void main() {
  fragmentColor = vertexColor;
  vsPosition = (M * vec4(vertexPosition, 1.0)).xyz;
  vsNormal = normalMatrix * vertexNormals;
  gl_Position = P * V * vec4(vsPosition, 1.0);
}
)";

constexpr const char* kPointVertex = R"(#version 300 es
precision highp float;

layout(location = 0) in vec3 vertexPosition;
layout(location = 1) in vec3 vertexColor;
layout(location = 2) in vec3 vertexNormals;
layout(location = 3) in vec3 nextCorner;
layout(location = 4) in vec3 lastCorner;

uniform mat4 M;
uniform mat4 V;
uniform mat4 P;
uniform mat3 normalMatrix;
uniform vec3 CameraPosition;

out vec3 fragmentColor;
out vec3 vsPosition;
out vec3 vsNormal;

void main() {
  fragmentColor = vertexColor;
  vsPosition = (M * vec4(vertexPosition, 1.0)).xyz;
  // A point has no back of its own: it is lit on the side that its triangle shows, or where that
  // has no area, on the one that its surroundings show.
  mat3 turn = mat3(M);
  vec3 side = cross(turn * (nextCorner - vertexPosition), turn * (lastCorner - vertexPosition));
  vec3 normal = normalMatrix * vertexNormals;
  vec3 facing = side == vec3(0.0) ? normal : side;
  vsNormal = dot(facing, CameraPosition - vsPosition) < 0.0 ? -normal : normal;
  gl_Position = P * V * vec4(vsPosition, 1.0);
}
)";

constexpr const char* kSurfaceFragment = R"(#version 300 es
precision highp float;

in vec3 fragmentColor;
in vec3 vsPosition;
in vec3 vsNormal;

uniform vec3 CameraPosition;
uniform vec3 ambient_lighting;
uniform vec3 diffuse_lighting;
uniform vec3 specular_lighting;
uniform vec3 LightDirection;
uniform float LightPower;
uniform float Shininess;

out vec4 outColor;

void main() {
  vec3 ambient = ambient_lighting * fragmentColor;

  vec3 norm = normalize(vsNormal);
  vec3 toLight = normalize(-LightDirection);
  // Two-sided lighting.
  float diff = max(dot(gl_FrontFacing ? norm : -norm, toLight), 0.0);
  vec3 diffuse = diffuse_lighting * diff * fragmentColor;

  // Tinted by the surface colour, so that a highlight never hides the colour of a height.
  vec3 viewDir = normalize(CameraPosition - vsPosition);
  vec3 reflectDir = reflect(-toLight, norm);
  float spec = pow(max(dot(viewDir, reflectDir), 0.0), Shininess);
  vec3 specular = specular_lighting * spec * fragmentColor * LightPower;

  outColor = vec4(ambient + diffuse + specular, 1.0);
}
)";

// The light is computed per vertex, and without colour: every light is white.
constexpr const char* kCoarseVertex = R"(#version 300 es
precision highp float;

layout(location = 0) in vec3 vertexPosition;
layout(location = 1) in vec3 vertexColor;
layout(location = 2) in vec3 vertexNormals;

uniform mat4 M;
uniform mat4 V;
uniform mat4 P;
uniform mat3 normalMatrix;
uniform vec3 CameraPosition;
uniform vec3 ambient_lighting;
uniform vec3 diffuse_lighting;
uniform vec3 specular_lighting;
uniform vec3 LightDirection;
uniform float LightPower;
uniform float Shininess;
uniform float lowest;
uniform float perUnit;

centroid out vec3 pointColour;
centroid out float part;
centroid out float frontLight;
centroid out float backLight;

void main() {
  vec3 place = (M * vec4(vertexPosition, 1.0)).xyz;
  gl_Position = P * V * vec4(place, 1.0);
  vec3 norm = normalize(normalMatrix * vertexNormals);
  vec3 toLight = normalize(-LightDirection);
  float side = dot(norm, toLight);
  float spec = pow(max(dot(normalize(CameraPosition - place), reflect(-toLight, norm)), 0.0),
                   Shininess);
  float both = ambient_lighting.r + specular_lighting.r * spec * LightPower;
  frontLight = both + diffuse_lighting.r * max(side, 0.0);
  backLight = both + diffuse_lighting.r * max(-side, 0.0);
  pointColour = vertexColor;
  part = (vertexPosition.z - lowest) * perUnit;
}
)";

}  // namespace

const ShaderSource kCoarseShader = {"CoarseVS", "CoarseFS", kCoarseVertex, R"(#version 300 es
precision highp float;

centroid in vec3 pointColour;
centroid in float frontLight;
centroid in float backLight;

out vec4 outColor;

void main() { outColor = vec4(pointColour * (gl_FrontFacing ? frontLight : backLight), 1.0); }
)"};

const ShaderSource kCoarseHeightShader = {"CoarseVS", "CoarseHeightFS", kCoarseVertex,
                                          R"(#version 300 es
precision highp float;

centroid in float part;
centroid in float frontLight;
centroid in float backLight;

uniform sampler2D colours;

out vec4 outColor;

void main() {
  vec3 colour = texture(colours, vec2(part, 0.5)).rgb;
  outColor = vec4(colour * (gl_FrontFacing ? frontLight : backLight), 1.0);
}
)"};

const ShaderSource kSurfaceShader = {"ModelVS", "ModelFS", kSurfaceVertex, kSurfaceFragment};
const ShaderSource kPointShader = {"PointVS", "ModelFS", kPointVertex, kSurfaceFragment};

const ShaderSource kKeyShader = {"KeyVS", "KeyFS",
                                 R"(#version 300 es
precision highp float;

layout(location = 3) in vec3 vertexPosition_modelspace;
layout(location = 4) in vec3 vertexColours;

out vec3 vertexColour;

void main() {
  gl_Position = vec4(vertexPosition_modelspace, 1.0);
  vertexColour = vertexColours;
}
)",
                                 R"(#version 300 es
precision highp float;

in vec3 vertexColour;
out vec4 color;

void main() { color = vec4(vertexColour, 1.0); }
)"};

}  // namespace morvane
