// The surfaces and pictures of the sample measurements.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "tools/bitmap_builder.h"
#include "tools/measurement_builder.h"

namespace morvane {

/// Heights in µm on a square pitch.
struct SampleSurface {
  std::size_t width = 0;
  std::size_t height = 0;
  double pitch = 0.0;  ///< mm
  std::vector<double> heights{};
};

/// A painted panel, the same in every run: a slight form, orange peel of several wavelengths, fine
/// roughness, a scratch, a crater and two inclusions.
SampleSurface paintedPanel(std::size_t width, std::size_t height, double pitch);

/// The orange-peel record (code 4) of a surface: two band passes in mm, with Sa, RaX, RaY and RsM
/// computed from the surface between the moving averages of the two limits.
std::vector<RecordWord> orangePeelRecord(const SampleSurface& surface);

/// A camera picture of the surface under grazing light: grey, one pixel per point.
BitmapContent grazingPicture(const SampleSurface& surface);

/// The same under diffuse light, in colour, with `border` points cut off on every side.
BitmapContent diffusePicture(const SampleSurface& surface, std::size_t border);

}  // namespace morvane
