// The six-colour height scale: the colour of a height, and the colour key.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

namespace morvane {

using Colour = std::array<float, 3>;

/// The stops of the scale from low to high: violet, blue, green, yellow, orange, red.
inline constexpr std::array<Colour, 6> kHeatStops = {{
    {0.6F, 0.4F, 1.0F},
    {0.0F, 0.0F, 1.0F},
    {0.0F, 1.0F, 0.0F},
    {1.0F, 1.0F, 0.0F},
    {1.0F, 0.4F, 0.0F},
    {1.0F, 0.0F, 0.0F},
}};

/// The colour of everything else: mid grey.
inline constexpr Colour kUncoloured = {0.5F, 0.5F, 0.5F};

/// The colour of heights outside a scale's range: grey, or the colour of the nearer end.
enum class Beyond { kGrey, kNearerEnd };

/// Maps a height range to the stops.
class HeatMapScale {
 public:
  HeatMapScale() = default;
  /// A scale from `lower` to `upper`, in height units; equal or reversed limits are allowed.
  HeatMapScale(float lower, float upper, Beyond beyond = Beyond::kGrey);

  [[nodiscard]] float lower() const { return lower_; }
  [[nodiscard]] float upper() const { return upper_; }

  /// The colour of `height`, linear between the stops. Grey for a missing point and on an empty
  /// range. With `kGrey`, heights up to 20 % of the range above the upper limit still have the
  /// colour of the last stop.
  [[nodiscard]] Colour colourOf(float height) const {
    if (beyond_ == Beyond::kNearerEnd) {
      height = std::clamp(height, std::min(lower_, upper_), std::max(lower_, upper_));
    }
    const float part = (height - lower_) / segment_;
    if (!(part >= 0.0F && part < static_cast<float>(kHeatStops.size()))) return kUncoloured;
    const auto stop = height == upper_ ? kHeatStops.size() - 1 : static_cast<std::size_t>(part);
    // Nothing is added to the last stop. Near the largest float the sum below would overflow.
    if (stop == kHeatStops.size() - 1) return kHeatStops[stop];
    const float above = height - (lower_ + static_cast<float>(stop) * segment_);
    Colour colour = kHeatStops[stop];
    for (std::size_t channel = 0; channel < 3; ++channel) {
      colour[channel] += slopes_[stop][channel] * above;
    }
    return colour;
  }

 private:
  float lower_ = 0.0F;
  float upper_ = 0.0F;
  Beyond beyond_ = Beyond::kGrey;
  float segment_ = 0.0F;                            // height between two stops
  std::array<Colour, kHeatStops.size()> slopes_{};  // per height unit; none past the last stop
};

inline constexpr std::size_t kKeyBands = kHeatStops.size() - 1;
inline constexpr std::size_t kKeyLabels = kHeatStops.size();

/// The colour key in normalised device coordinates: five bands, red on top, two triangles each.
struct KeyGeometry {
  std::array<float, kKeyBands * 18> positions;
  std::array<float, kKeyBands * 18> colours;
};
inline constexpr float kKeyCentreX = 0.75F;
inline constexpr float kKeyWidth = 0.05F;
inline constexpr float kKeyHeight = 1.4F;

/// The vertices and colours of the key.
KeyGeometry keyGeometry();

/// The y (device coordinates) of key label `i`, counted from the top.
float keyLabelY(std::size_t i);

/// The numbers beside the key, top to bottom, from `max` to `min` with two decimals.
std::array<std::string, kKeyLabels> keyLabels(float max, float min);

}  // namespace morvane
