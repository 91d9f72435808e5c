// The user's folders, this program's own among them.
#pragma once

#include <iosfwd>
#include <string>

namespace morvane {

/// The folder for saved copies of measurements.
std::string savedFilesFolder();

/// The folder for screenshots, with a trailing separator.
std::string screenshotsFolder();

/// The user's documents folder, or the profile folder if there is none.
std::string documentsFolder();

/// The absolute path of the folder that contains the file `path`. For a bare name that is the
/// current folder.
std::string absoluteFolderOf(const std::string& path);

/// Creates `folder` (UTF-8) and its parents where they are missing. Writes to `log` whether it
/// existed and, if not, whether it could be created. False when the folder does not exist
/// afterwards.
bool makeFolder(const std::string& folder, std::ostream& log);

}  // namespace morvane
