// A hint about unusual cut-offs.
#pragma once

#include <string>

#include "filter/band_filter.h"
#include "resfile/res_header.h"

namespace morvane {

/// One line about the first problem with `settings` for a surface with this header (sizes of 0:
/// none is open). Problems are a band pass that lets nothing through, a cut-off that is not a
/// number, negative or longer than the surface's longer side, and a band pass whose L1 is not below
/// L2. Empty when there is no problem.
std::string filterHint(const FilterSettings& settings, const ResHeader& header);

}  // namespace morvane
