// The user's own folders of this program.
#pragma once

#include <iosfwd>
#include <string>

namespace morvane {

/// Where saved copies of measurements go.
std::string savedFilesFolder();

/// Where pictures of the screen go, with a separator behind it.
std::string screenshotsFolder();

/// Makes sure that `folder` (UTF-8) exists, with all its parents, and writes to `log` how it stood
/// and, where it had to be made, whether that succeeded. False when there is no such folder then.
bool makeFolder(const std::string& folder, std::ostream& log);

}  // namespace morvane
