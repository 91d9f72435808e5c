// The colour maps of the heat map, as one table.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace morvane {

/// Red, green and blue in linear light: frames are encoded to sRGB when they are drawn.
using Colour = std::array<float, 3>;

/// The colour of everything that no map colours: mid grey.
inline constexpr Colour kUncoloured = {0.5F, 0.5F, 0.5F};

/// The colour of heights outside a scale's range: grey, or the colour of the nearer end.
enum class Beyond { kGrey, kNearerEnd };

/// Colours from low to high.
struct ColourMap {
  const char* name;           ///< in the menu
  std::string_view option;    ///< on the command line
  std::vector<Colour> stops;  ///< equidistant, at least two
  std::size_t keyBands;       ///< of the colour key, with a number at each end of a band
  Beyond beyond;              ///< heights outside the surface's own limits
};

/// All maps. The first is the standard one.
std::span<const ColourMap> colourMaps();

/// The map that the command line calls `option`; null if there is none.
const ColourMap* colourMap(std::string_view option);

/// The map of a fresh start.
inline const ColourMap& standardColours() { return colourMaps().front(); }

}  // namespace morvane
