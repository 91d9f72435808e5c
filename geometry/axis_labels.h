// The places of the names and lengths of the surface's axes: no window, no GL.
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

/// The ranges of the axes.
struct AxesRange {
  const ResHeader* header = nullptr;  ///< point counts and pixel sizes in mm
  float bottom = 0.0F;                ///< heights in µm
  float top = 0.0F;
  float heightToModel = 0.0F;  ///< model units per µm, as the surface is drawn
  float lift = 0.0F;           ///< offset at which it is drawn, model units; see `heightLift`
};

/// The axes as lines in pin space. They start at a point beside the grid's first corner and run
/// along x and y. The z axis passes that point, from the bottom to the top.
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

/// A text in a horizontal plane, with its baseline along x.
struct AxisLabel {
  std::string text;
  glm::vec3 place{0.0F};  ///< where the baseline starts
  float scale = 0.8F;     ///< that it is drawn at; more where it would be too small to read
};

/// The labels of the axes: names, lengths, then the bottom height and the top height. They are laid
/// out for a window of `width` × `height` pixels; `toClip` transforms pin space to clip space.
/// Names and lengths have fixed places. A length that would overlap a name or a `taken` area of the
/// screen is moved by a few lines. The heights are placed at the ends of the Z axis. A height that
/// would overlap another label or a line on the screen is moved in its plane. Seen from above, both
/// ends are nearly the same point; then the top height is placed directly above the bottom height
/// on the screen. With `onlyFitting`, labels that still overlap something or reach out of the
/// window are empty.
std::array<AxisLabel, 7> axisLabels(const AxesRange& range, const glm::mat4& toClip, int width,
                                    int height, const TextWidth& textWidth,
                                    std::vector<ScreenQuad> taken = {}, bool onlyFitting = false);

/// The corners of a label's box including its rim, in pin space, counter-clockwise from the lower
/// left.
std::array<glm::vec3, 4> cornersOf(const AxisLabel& label, const TextWidth& textWidth);

}  // namespace morvane
