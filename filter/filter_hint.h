// What is odd about typed cut-offs, in words.
#pragma once

#include <string>

#include "filter/band_filter.h"
#include "resfile/res_header.h"

namespace morvane {

/// One line about the first thing that is odd about `settings` for a surface with this header
/// (sizes of 0: none is open): a band pass that nothing passes, a cut-off that is no number,
/// negative or longer than the surface's longer side, or a band pass whose L1 is not below L2.
/// Empty when nothing is.
std::string filterHint(const FilterSettings& settings, const ResHeader& header);

}  // namespace morvane
