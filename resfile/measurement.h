// One measurement as it is shown: a share of everything one read brought.
#pragma once

#include <memory>
#include <string>

#include "resfile/height_grid.h"
#include "resfile/res_header.h"
#include "resfile/res_results.h"

namespace morvane {

/// Whoever shows, copies or reports on a measurement holds this, so that a later read that fails
/// takes nothing from under it.
struct Measurement {
  std::string path;
  ResHeader header;
  ResResults results;
  HeaderBytes ownHeader{};  ///< of this file
  std::shared_ptr<const HeightGrid> grid;
};

}  // namespace morvane
