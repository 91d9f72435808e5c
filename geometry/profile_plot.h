// The plot of a profile section as lines and texts: no window, no GL.
#pragma once

#include <glm/vec2.hpp>
#include <string>
#include <vector>

#include "geometry/profile_section.h"
#include "geometry/text_width.h"

namespace morvane {

/// What is plotted.
struct PlotData {
  const ProfileSection& section;
  Crop crop;               ///< of the section's heights
  float pixelSize = 0.0F;  ///< spacing of the samples, mm
  float limitHigh = 0.0F;  ///< heat-map limits; they scale the plot of a flat line
  float limitLow = 0.0F;
  float pixelRatio = 1.0F;  ///< pixels of the picture for each of the window
  /// Leaves texts out that would lie on others, reach out of the picture or be too small to read.
  bool onlyTextsThatFit = false;
};

/// A text of the plot, at a size of 48 pixels times `scale`.
struct PlotText {
  std::string text;
  glm::vec2 place{0.0F};  ///< start of the baseline, in pixels from the lower left corner
  float scale = 1.0F;
};

/// The places of the plot's parts, in device coordinates.
namespace plot {
inline constexpr float kLeft = -0.75F;       // where the curve begins, beside the vertical axis
inline constexpr float kAxisWidth = 0.03F;   // of the vertical axis
inline constexpr float kLength = 1.7F;       // of the curve's room
inline constexpr float kAxisLength = 1.71F;  // of the horizontal axis
inline constexpr float kMiddle = 0.1F;       // height of the horizontal axis
inline constexpr float kHalfAxis = 0.85F;    // half the length of the vertical axis
inline constexpr float kHalfCurve = 0.65F;   // the curve's room above and below the middle
inline constexpr int kTicks = 11;
/// Device x of tick `i`.
inline constexpr float tickX(int i) {
  return kLeft + kLength / static_cast<float>(kTicks - 1) * static_cast<float>(i);
}
}  // namespace plot

/// Lines as pairs of points in device coordinates.
struct ProfilePlot {
  std::vector<glm::vec2> curve;    ///< the section, with its gaps
  std::vector<glm::vec2> clipped;  ///< the parts of it that were clipped to a limit
  std::vector<glm::vec2> levels;   ///< the heights that have a number
  std::vector<PlotText> texts;
};

/// Lays out the plot for a window of `width` × `height` pixels; a text unit is a pixel. Without
/// samples there are only the texts below the plot.
ProfilePlot layOutProfile(const PlotData& data, int width, int height, const TextWidth& textWidth);

}  // namespace morvane
