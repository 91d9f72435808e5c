// A filter in words, for beside what it made.
#pragma once

#include <string>

#include "filter/band_filter.h"

namespace morvane {

/// "Low pass 0.80 mm", or "Band pass 0.80 to 2.50 mm", with the cut-offs as they count; empty
/// without a type.
std::string filterWords(const FilterSettings& settings);

}  // namespace morvane
