#include "surface/colour_maps.h"

namespace morvane {
namespace {

/// Violet, blue, green, yellow, orange, red.
constexpr Colour kStandard[] = {
    {0.6F, 0.4F, 1.0F}, {0.0F, 0.0F, 1.0F}, {0.0F, 1.0F, 0.0F},
    {1.0F, 1.0F, 0.0F}, {1.0F, 0.4F, 0.0F}, {1.0F, 0.0F, 0.0F},
};

constexpr ColourMap kMaps[] = {
    {"Standard", "standard", kStandard, 5, Beyond::kGrey},
};

}  // namespace

std::span<const ColourMap> colourMaps() { return kMaps; }

}  // namespace morvane
