#include "filter/filter_hint.h"

#include <algorithm>
#include <string_view>

#include "resfile/number_text.h"

namespace morvane {
namespace {

bool beginsWithNumber(std::string_view typed) {
  typed.remove_prefix(std::min(typed.find_first_not_of(' '), typed.size()));
  for (const std::string_view optional : {"+-", "."}) {
    if (!typed.empty() && optional.find(typed.front()) != std::string_view::npos)
      typed.remove_prefix(1);
  }
  return !typed.empty() && typed.front() >= '0' && typed.front() <= '9';
}

std::string oddity(std::string_view name, const std::string& typed, double fieldLength) {
  const std::string field(name);
  if (!typed.empty() && !beginsWithNumber(typed))
    return field + " is not a number: it counts as 0.";
  const float cutOff = cutOffOf(typed);
  if (cutOff < 0.0F) return field + " is negative: its sign does not count.";
  if (fieldLength > 0.0 && static_cast<double>(cutOff) > fieldLength) {
    return field + " is longer than the measured field, " + fixedText(fieldLength, 2) + " mm.";
  }
  return {};
}

}  // namespace

std::string filterHint(const FilterSettings& settings, double fieldLength) {
  std::string hint = oddity("L1", settings.l1, fieldLength);
  if (!hint.empty() || typeOf(settings) != FilterType::kBandPass) return hint;
  hint = oddity("L2", settings.l2, fieldLength);
  if (!hint.empty()) return hint;
  if (!(cutOffOf(settings.l1) < cutOffOf(settings.l2))) return "L1 is not below L2.";
  return {};
}

}  // namespace morvane
