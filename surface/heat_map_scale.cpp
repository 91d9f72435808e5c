#include "surface/heat_map_scale.h"

#include <array>
#include <cmath>

#include "base/number_text.h"

namespace morvane {
namespace {

/// The y of boundary `i` of `bands` equal bands of the key, counted from the top.
float boundaryY(std::size_t i, std::size_t bands) {
  return kKeyHeight / 2 - static_cast<float>(i) * (kKeyHeight / static_cast<float>(bands));
}

}  // namespace

HeatMapScale::HeatMapScale(const ColourMap& map, float lower, float upper, Beyond beyond)
    : map_(&map),
      lower_(lower),
      upper_(upper),
      beyond_(beyond),
      last_(map.stops.size() - 1),
      end_(static_cast<float>(map.stops.size())),
      segment_((upper - lower) / static_cast<float>(last_)) {
  for (const Colour& colour : map.stops) stops_.push_back({colour});
  for (std::size_t stop = 0; stop < last_; ++stop) {
    for (std::size_t channel = 0; channel < 3; ++channel) {
      stops_[stop].slope[channel] =
          (map.stops[stop + 1][channel] - map.stops[stop][channel]) / segment_;
    }
  }
  // A range too large or too small for a float is treated like an empty one.
  if (!std::isfinite(segment_) || !std::isfinite(1.0F / segment_)) segment_ = NAN;
}

KeyGeometry keyGeometry(const ColourMap& map) {
  KeyGeometry key;
  const float left = kKeyCentreX - kKeyWidth / 2;
  const float right = kKeyCentreX + kKeyWidth / 2;
  const std::size_t segments = map.stops.size() - 1;
  const auto put = [&](float x, std::size_t boundary) {
    const std::array position = {x, boundaryY(boundary, segments), 0.0F};
    const Colour& stop = map.stops[segments - boundary];
    key.positions.insert(key.positions.end(), position.begin(), position.end());
    key.colours.insert(key.colours.end(), stop.begin(), stop.end());
  };
  for (std::size_t segment = 0; segment < segments; ++segment) {
    put(left, segment);
    put(left, segment + 1);
    put(right, segment);
    put(right, segment);
    put(left, segment + 1);
    put(right, segment + 1);
  }
  return key;
}

std::vector<KeyLabel> keyLabels(const HeatMapScale& scale) {
  const std::size_t bands = scale.map().keyBands;
  std::vector<KeyLabel> labels;
  for (std::size_t i = 0; i <= bands; ++i) {
    const float value = scale.upper() - static_cast<float>(i) * (scale.upper() - scale.lower()) /
                                            static_cast<float>(bands);
    labels.push_back({fixedText(static_cast<double>(value), 2), boundaryY(i, bands)});
  }
  return labels;
}

}  // namespace morvane
