// Lists the bitmaps in the folder of a measurement.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace morvane {

struct BitmapFolder {
  std::string folder;              ///< without a trailing separator
  std::vector<std::string> names;  ///< bitmaps in it, in listing order
};

/// Lists the files in the folder of the measurement `resPath` whose names end in ".bmp". Kept:
/// ".BMP" does not count. A bare name means the current folder. All texts are UTF-8. Writes the
/// folder and the names to `log`.
BitmapFolder scanBitmaps(const std::string& resPath, std::ostream& log);

}  // namespace morvane
