// What is odd about typed cut-offs, in words.
#pragma once

#include <string>

#include "filter/band_filter.h"

namespace morvane {

/// One line about the first thing that is odd about `settings` for a surface whose longer side is
/// `fieldLength` mm (0: none is open): a cut-off that is no number, negative or longer than the
/// surface, or a band pass whose L1 is not below L2. Empty when nothing is.
std::string filterHint(const FilterSettings& settings, double fieldLength);

}  // namespace morvane
