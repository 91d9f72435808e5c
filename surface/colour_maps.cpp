#include "surface/colour_maps.h"

#include <cmath>
#include <cstdint>

#include "surface/viridis.h"

namespace morvane {
namespace {

/// Steps that look equal to the eye, from black to white.
constexpr std::uint32_t kGrey[] = {
    0x000000, 0x0f0f0f, 0x1e1e1e, 0x2d2d2d, 0x3c3c3c, 0x4b4b4b, 0x5a5a5a, 0x696969, 0x787878,
    0x878787, 0x969696, 0xa5a5a5, 0xb4b4b4, 0xc3c3c3, 0xd2d2d2, 0xe1e1e1, 0xf0f0f0, 0xffffff,
};

/// One channel of an sRGB colour in linear light (IEC 61966-2-1).
float linear(std::uint32_t encoded) {
  const double value = static_cast<double>(encoded & 0xFF) / 255.0;
  return static_cast<float>(value <= 0.04045 ? value / 12.92
                                             : std::pow((value + 0.055) / 1.055, 2.4));
}

/// The stops of colours that were published as 0xRRGGBB in sRGB.
std::vector<Colour> published(std::span<const std::uint32_t> colours) {
  std::vector<Colour> stops;
  for (const std::uint32_t rgb : colours) {
    stops.push_back({linear(rgb >> 16), linear(rgb >> 8), linear(rgb)});
  }
  return stops;
}

}  // namespace

std::span<const ColourMap> colourMaps() {
  static const ColourMap maps[] = {
      // Violet, blue, green, yellow, orange, red.
      {.name = "Standard",
       .option = "standard",
       .stops = {{0.6F, 0.4F, 1.0F},
                 {0.0F, 0.0F, 1.0F},
                 {0.0F, 1.0F, 0.0F},
                 {1.0F, 1.0F, 0.0F},
                 {1.0F, 0.4F, 0.0F},
                 {1.0F, 0.0F, 0.0F}},
       .keyBands = 5,
       .beyond = Beyond::kGrey},
      {"Viridis", "viridis", published(kViridis), 5, Beyond::kNearerEnd},
      {"Grey", "grey", published(kGrey), 5, Beyond::kNearerEnd},
  };
  return maps;
}

const ColourMap* colourMap(std::string_view option) {
  for (const ColourMap& map : colourMaps()) {
    if (map.option == option) return &map;
  }
  return nullptr;
}

}  // namespace morvane
