#include "filter/filter_words.h"

#include <cmath>
#include <string_view>

#include "base/number_text.h"

namespace morvane {
namespace {

std::string cutOffText(std::string_view typed) { return settingText(std::abs(cutOffOf(typed))); }

}  // namespace

std::string filterWords(const FilterSettings& settings) {
  const std::optional<FilterType> type = typeOf(settings);
  if (!type) return {};
  const std::string l1 = cutOffText(settings.l1);
  switch (*type) {
    case FilterType::kHighPass:
      return "High pass " + l1 + " mm";
    case FilterType::kLowPass:
      return "Low pass " + l1 + " mm";
    case FilterType::kBandPass:
      break;
  }
  return "Band pass " + l1 + " to " + cutOffText(settings.l2) + " mm";
}

}  // namespace morvane
