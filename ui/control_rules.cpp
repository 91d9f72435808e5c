#include "ui/control_rules.h"

#include <charconv>

#include "results/layouts.h"

namespace morvane {
namespace {

constexpr std::string_view kMicro = "µ";  // as the inputs hold it; the single byte goes too

constexpr float kStep = 0.05F;
constexpr float kSmallestScale = 1e-10F;

}  // namespace

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

double leadingNumber(std::string_view text) {
  const auto begin = text.find_first_not_of(" \t");
  if (begin == std::string_view::npos) return 0.0;
  text.remove_prefix(begin);
  const std::size_t sign = text.starts_with('+') || text.starts_with('-') ? 1 : 0;
  // Words such as "nan" and "inf" are no decimal numbers.
  if (text.find_first_of("0123456789.", sign) != sign) return 0.0;
  if (text.starts_with('+')) text.remove_prefix(1);
  double value = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

float steppedScale(int direction, float base, float maximum, float current) {
  const float step = kStep * base;
  if (direction > 0) return maximum - current > 0.0F ? current + step : maximum;
  return current - step > 0.0F ? current - step : kSmallestScale;
}

}  // namespace morvane
