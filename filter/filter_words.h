// The description of a filter that is shown with the filtered surface.
#pragma once

#include <string>

#include "filter/band_filter.h"

namespace morvane {

/// "Low pass 0.80 mm" or "Band pass 0.80 to 2.50 mm", with the cut-offs that the filter uses. Empty
/// without a type.
std::string filterWords(const FilterSettings& settings);

}  // namespace morvane
