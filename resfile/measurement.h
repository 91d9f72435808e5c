// One measurement: everything that one read returned.
#pragma once

#include <memory>
#include <string>

#include "resfile/height_grid.h"
#include "resfile/res_header.h"
#include "resfile/res_results.h"

namespace morvane {

/// The parts that show, copy or report on a measurement hold a copy of this, which shares the grid.
/// So a later read that fails does not affect them.
struct Measurement {
  std::string path;
  ResHeader header;
  ResResults results;
  HeaderBytes ownHeader{};  ///< the raw header of this file
  std::shared_ptr<const HeightGrid> grid;
};

}  // namespace morvane
