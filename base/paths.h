// Folders and file names the program forms, with the separator of the platform.
#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// `\` on Windows, `/` elsewhere.
extern const char kPathSeparator;
/// All that separate folders in a path of this system: `\` and `/` on Windows.
extern const std::string_view kPathSeparators;

/// Value of an environment variable in UTF-8; empty when it is not set.
std::string environmentText(const char* name);

/// The user's profile folder; empty when the system names none.
std::string userProfileFolder();

/// The path of the first file that `dropped` names: a link such as "file:///a%20b.res", as a
/// desktop hands files over, or a plain path, alone or at the head of a list with one on each line.
std::string pathOfLink(std::string_view dropped);

/// `path` up to, not including, its last `/` or `\`; the whole text when it has neither.
std::string folderOf(std::string_view path);

/// The folder of `path`, with the separator behind it; empty for a bare name, which holds none of
/// the system's separators.
std::string folderPrefix(std::string_view path);

/// What stands behind the last `/` or `\`; the whole text when it has neither.
std::string fileNameOf(std::string_view path);

/// `name` in `folder`. On Windows every separator becomes its own, which choosers insist on.
std::string pathIn(std::string_view folder, std::string_view name);

/// A file of the `resources` folder beside the executable, e.g. ("Icons", "open.png").
std::string resourcePath(std::string_view exeFolder, std::string_view subfolder,
                         std::string_view name);

}  // namespace morvane
