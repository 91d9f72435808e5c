// A measurement file as the reader finds it.
#pragma once

#include <sstream>
#include <string>

#include "resfile/res_file.h"

namespace morvane {

/// A reader that has read one file, with what it logged.
struct Reader {
  explicit Reader(const std::string& path) { file.update(path); }

  std::ostringstream log;
  resFile file{log};
};

}  // namespace morvane
