#include "filter/filter_hint.h"

#include <algorithm>
#include <sstream>
#include <string_view>

#include "base/number_text.h"

namespace morvane {
namespace {

std::string oddity(std::string_view name, const std::string& typed, double fieldLength) {
  const std::string field(name);
  const float cutOff = cutOffOf(typed);
  if (!typed.empty() && !isNumber(typed)) {
    std::ostringstream hint;
    hint << field << " is not a number: it counts as " << cutOff << '.';
    return hint.str();
  }
  if (cutOff < 0.0F) return field + " is negative: its sign does not count.";
  if (fieldLength > 0.0 && cutOff > static_cast<float>(fieldLength)) {
    return field + " is longer than the measured field, " + fixedText(fieldLength, 2) + " mm.";
  }
  return {};
}

}  // namespace

std::string filterHint(const FilterSettings& settings, const ResHeader& header) {
  const bool bandPass = typeOf(settings) == FilterType::kBandPass;
  const float l1 = cutOffOf(settings.l1);
  const float l2 = cutOffOf(settings.l2);
  if (bandPass &&
      bandPassesNothing(header.width, header.height, l1, l2, static_cast<float>(header.pixelSizeX),
                        static_cast<float>(header.pixelSizeY))) {
    return "Nothing passes between these cut-offs.";
  }
  const double fieldLength =
      std::max(header.width * header.pixelSizeX, header.height * header.pixelSizeY);
  std::string hint = oddity("L1", settings.l1, fieldLength);
  if (!hint.empty() || !bandPass) return hint;
  hint = oddity("L2", settings.l2, fieldLength);
  if (!hint.empty()) return hint;
  return l1 < l2 ? "" : "L1 is not below L2.";
}

}  // namespace morvane
