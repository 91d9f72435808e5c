#include "ui/control_rules.h"

#include <cmath>

#include "results/layouts.h"

namespace morvane {
namespace {

constexpr std::string_view kMicro = "µ";  // as in the inputs; the Latin-1 byte is removed too

constexpr float kStep = 0.05F;

}  // namespace

double finiteScale(float zScale) { return std::isfinite(zScale) ? double{zScale} : 1.0; }

std::string readoutText(float zScale) { return fixedText(zScale, 0) + "x"; }

std::string stripUnit(std::string_view text) {
  std::string stripped;
  while (!text.empty()) {
    if (text.starts_with(kMicro)) {
      text.remove_prefix(kMicro.size());
      continue;
    }
    if (text.front() != 'm' && text.front() != kMicroSign) stripped += text.front();
    text.remove_prefix(1);
  }
  return stripped;
}

float steppedScale(int direction, float base, float maximum, float current) {
  const float step = kStep * base;
  if (direction > 0) return maximum - current > 0.0F ? current + step : maximum;
  return current - step > 0.0F ? current - step : static_cast<float>(kSmallestScale);
}

}  // namespace morvane
