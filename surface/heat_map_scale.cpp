#include "surface/heat_map_scale.h"

#include <algorithm>
#include <cmath>

#include "base/number_text.h"

namespace morvane {
namespace {

constexpr float kBandHeight = kKeyHeight / static_cast<float>(kKeyBands);

}  // namespace

HeatMapScale::HeatMapScale(float lower, float upper, Beyond beyond)
    : lower_(lower),
      upper_(upper),
      beyond_(beyond),
      segment_((upper - lower) / static_cast<float>(kKeyBands)) {
  for (std::size_t stop = 0; stop + 1 < kHeatStops.size(); ++stop) {
    for (std::size_t channel = 0; channel < 3; ++channel) {
      slopes_[stop][channel] =
          (kHeatStops[stop + 1][channel] - kHeatStops[stop][channel]) / segment_;
    }
  }
  // A range too large or too small for a float is treated like an empty one.
  if (!std::isfinite(segment_) || !std::isfinite(1.0F / segment_)) segment_ = NAN;
}

float keyLabelY(std::size_t i) { return kKeyHeight / 2 - static_cast<float>(i) * kBandHeight; }

KeyGeometry keyGeometry() {
  KeyGeometry key{};
  const float left = kKeyCentreX - kKeyWidth / 2;
  const float right = kKeyCentreX + kKeyWidth / 2;
  auto position = key.positions.begin();
  auto colour = key.colours.begin();
  const auto put = [&](float x, std::size_t boundary) {
    position = std::copy_n(std::array{x, keyLabelY(boundary), 0.0F}.begin(), 3, position);
    const Colour& stop = kHeatStops[kHeatStops.size() - 1 - boundary];
    colour = std::copy(stop.begin(), stop.end(), colour);
  };
  for (std::size_t band = 0; band < kKeyBands; ++band) {
    put(left, band);
    put(left, band + 1);
    put(right, band);
    put(right, band);
    put(left, band + 1);
    put(right, band + 1);
  }
  return key;
}

std::array<std::string, kKeyLabels> keyLabels(float max, float min) {
  std::array<std::string, kKeyLabels> labels;
  for (std::size_t i = 0; i < kKeyLabels; ++i) {
    const float value = max - static_cast<float>(i) * (max - min) / static_cast<float>(kKeyBands);
    labels[i] = fixedText(static_cast<double>(value), 2);
  }
  return labels;
}

}  // namespace morvane
