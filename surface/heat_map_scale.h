// The height scale: the colour of a height, and the colour key.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "surface/colour_maps.h"

namespace morvane {

/// Maps a height range to the stops of a colour map.
class HeatMapScale {
 public:
  /// A scale from `lower` to `upper`, in height units; equal or reversed limits are allowed. `map`
  /// is a row of the table.
  HeatMapScale(const ColourMap& map, float lower, float upper, Beyond beyond);
  /// The same over a surface's own limits.
  HeatMapScale(const ColourMap& map, float lower, float upper)
      : HeatMapScale(map, lower, upper, map.beyond) {}

  [[nodiscard]] const ColourMap& map() const { return *map_; }
  [[nodiscard]] float lower() const { return lower_; }
  [[nodiscard]] float upper() const { return upper_; }

  /// The colour of `height`, linear between the stops. Grey for a missing point and on an empty
  /// range. With `kGrey`, heights above the upper limit by up to the distance of two stops still
  /// have the colour of the last stop.
  [[nodiscard]] Colour colourOf(float height) const {
    if (beyond_ == Beyond::kNearerEnd) {
      height = std::clamp(height, std::min(lower_, upper_), std::max(lower_, upper_));
    }
    const float part = (height - lower_) / segment_;
    if (!(part >= 0.0F && part < end_)) return kUncoloured;
    const auto stop = height == upper_ ? last_ : static_cast<std::size_t>(part);
    Colour colour = stops_[stop].colour;
    // Nothing is added to the last stop. Near the largest float the sum below would overflow.
    if (stop == last_) return colour;
    const float above = height - (lower_ + static_cast<float>(stop) * segment_);
    for (std::size_t channel = 0; channel < 3; ++channel) {
      colour[channel] += stops_[stop].slope[channel] * above;
    }
    return colour;
  }

 private:
  struct Stop {
    Colour colour;
    Colour slope{};  // per height unit; none past the last stop
  };

  const ColourMap* map_;
  float lower_;
  float upper_;
  Beyond beyond_;
  std::size_t last_;  // stop
  float end_;         // the number of stops
  float segment_;     // height between two stops
  std::vector<Stop> stops_;
};

/// The colour key in normalised device coordinates: highest colour on top, two triangles between
/// two stops.
struct KeyGeometry {
  std::vector<float> positions;
  std::vector<float> colours;
};
inline constexpr float kKeyCentreX = 0.75F;
inline constexpr float kKeyWidth = 0.05F;
inline constexpr float kKeyHeight = 1.4F;

/// The vertices and colours of the key.
KeyGeometry keyGeometry(const ColourMap& map);

/// A number beside the key.
struct KeyLabel {
  std::string text;  ///< the height with two decimals
  float y = 0.0F;    ///< device coordinates
};

/// The numbers beside the key, top to bottom, from the upper to the lower limit.
std::vector<KeyLabel> keyLabels(const HeatMapScale& scale);

}  // namespace morvane
