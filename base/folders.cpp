#include "base/folders.h"

#include <filesystem>
#include <ostream>
#include <system_error>

#include "base/paths.h"

namespace morvane {
namespace {

std::string programFolder(const char* name) {
  std::string path = userProfileFolder();
  for (const char* step : {"Documents", "Morvane_Reader", name}) {
    path += kPathSeparator;
    path += step;
  }
  return path;
}

}  // namespace

std::string savedFilesFolder() { return programFolder("Saved Files"); }

std::string screenshotsFolder() { return programFolder("Screenshots") + kPathSeparator; }

bool makeFolder(const std::string& folder, std::ostream& log) {
  const std::filesystem::path path(std::u8string(folder.begin(), folder.end()));
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  if (std::filesystem::exists(status)) {
    const bool isFolder = std::filesystem::is_directory(status);
    log << folder << (isFolder ? " exists" : " is no directory") << '\n';
    return isFolder;
  }
  const bool made = std::filesystem::create_directories(path, error);
  log << "CANNOT ACCESS: " << folder << '\n' << "CHECK: " << (made ? 1 : 0) << "\n\n";
  return made;
}

}  // namespace morvane
