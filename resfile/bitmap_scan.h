// The bitmaps that lie beside a measurement.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace morvane {

struct BitmapFolder {
  std::string folder;              ///< without a trailing separator
  std::vector<std::string> names;  ///< bitmaps in it, in listing order
};

/// Lists the files whose name holds ".bmp" four characters before its end (kept: upper case does
/// not count) in the folder of the measurement `resPath`; a bare name lies in the current folder.
/// UTF-8 throughout. Writes folder and names to `log`.
BitmapFolder scanBitmaps(const std::string& resPath, std::ostream& log);

}  // namespace morvane
