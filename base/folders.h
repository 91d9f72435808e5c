// The user's folders, this program's own among them.
#pragma once

#include <iosfwd>
#include <string>

namespace morvane {

/// Where saved copies of measurements go.
std::string savedFilesFolder();

/// Where pictures of the screen go, with a separator behind it.
std::string screenshotsFolder();

/// The user's documents; the profile folder where there are none.
std::string documentsFolder();

/// The whole path of the folder that the file `path` lies in; a bare name's is the current folder.
std::string absoluteFolderOf(const std::string& path);

/// Makes sure that `folder` (UTF-8) exists, with all its parents, and writes to `log` how it stood
/// and, where it had to be made, whether that succeeded. False when there is no such folder then.
bool makeFolder(const std::string& folder, std::ostream& log);

}  // namespace morvane
