// Paths and file names, with the separator of the platform.
#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// `\` on Windows, `/` elsewhere.
extern const char kPathSeparator;
/// All characters that separate folders on this system: `\` and `/` on Windows.
extern const std::string_view kPathSeparators;

/// Value of an environment variable in UTF-8; empty when it is not set.
std::string environmentText(const char* name);

/// The user's profile folder; empty when the system has none.
std::string userProfileFolder();

/// The path of the first file in the dropped text `dropped`, which holds one file on each line. A
/// file is a URI such as "file:///a%20b.res", as desktops send it, or a plain path.
std::string pathOfLink(std::string_view dropped);

/// `path` up to, not including, its last `/` or `\`; the whole text when it has neither.
std::string folderOf(std::string_view path);

/// The folder of `path` with a trailing separator. Empty for a bare name, which has no separator of
/// this system.
std::string folderPrefix(std::string_view path);

/// What follows the last `/` or `\`; the whole text when it has neither.
std::string fileNameOf(std::string_view path);

/// Whether `path` ends with `extension` (with its point, in lower case) in any case, behind a name.
bool hasExtension(std::string_view path, std::string_view extension);

/// The path of `name` in `folder`. On Windows every `/` becomes `\`, as the file dialogs require.
std::string pathIn(std::string_view folder, std::string_view name);

/// A file of the `resources` folder beside the executable, e.g. ("Icons", "open.png").
std::string resourcePath(std::string_view exeFolder, std::string_view subfolder,
                         std::string_view name);

}  // namespace morvane
