// Where the names and lengths of the surface's axes stand: no window, no GL.
#pragma once

#include <array>
#include <glm/mat4x4.hpp>
#include <glm/vec3.hpp>
#include <string>
#include <vector>

#include "geometry/screen_quad.h"
#include "geometry/text_width.h"
#include "resfile/res_header.h"

namespace morvane {

/// What the axes measure.
struct AxesRange {
  const ResHeader* header = nullptr;  ///< point counts and pixel sizes in mm
  float bottom = 0.0F;                ///< heights in µm
  float top = 0.0F;
  float heightToModel = 0.0F;  ///< model units per µm, as the surface is drawn
  float lift = 0.0F;           ///< how much higher it is drawn, model units
};

/// The axes as lines in the space of the pins: from one point beside the grid's first corner along
/// x and y, and past it from the bottom to the top.
struct AxisLines {
  glm::vec3 corner{0.0F};
  glm::vec3 endX{0.0F};
  glm::vec3 endY{0.0F};
  glm::vec3 bottom{0.0F};
  glm::vec3 top{0.0F};
};
AxisLines axisLines(const AxesRange& range);

/// Text units to model units.
inline constexpr float kTextToModel = 0.001F;

/// A text that lies in a plane of one height, its baseline along x.
struct AxisLabel {
  std::string text;
  glm::vec3 place{0.0F};  ///< where the baseline starts
  float scale = 0.8F;     ///< that it is drawn at; more where it would be too small to read
};

/// Names, lengths and heights, the bottom height and the top height last, as they stand in a window
/// of `width` × `height` pixels to which `toClip` takes the space of the pins. Names and lengths
/// have fixed places; a length that would overlap what is `taken` on the screen stands a few lines
/// from there. The heights stand at the ends of the Z axis; where one would overlap another
/// label or a line on the screen it is moved in its plane. Seen from above, where both ends are
/// nearly one point, the top height stands on the bottom height.
std::array<AxisLabel, 7> axisLabels(const AxesRange& range, const glm::mat4& toClip, int width,
                                    int height, const TextWidth& textWidth,
                                    std::vector<ScreenQuad> taken = {});

/// The corners of the room a label takes with its rim, in the space of the pins, from the lower
/// left one counter-clockwise.
std::array<glm::vec3, 4> cornersOf(const AxisLabel& label, const TextWidth& textWidth);

}  // namespace morvane
