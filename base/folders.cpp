#include "base/folders.h"

#include <filesystem>
#include <ostream>
#include <system_error>

#include "base/paths.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;

fs::path systemPath(const std::string& path) {
  return fs::path(std::u8string(path.begin(), path.end()));
}

std::string programFolder(const char* name) {
  std::string path = userProfileFolder();
  for (const char* step : {"Documents", "Morvane_Reader", name}) {
    path = pathIn(path, step);
  }
  return path;
}

}  // namespace

std::string savedFilesFolder() { return programFolder("Saved Files"); }

std::string screenshotsFolder() { return programFolder("Screenshots") + kPathSeparator; }

std::string documentsFolder() {
  const std::string home = userProfileFolder();
  const std::string documents = pathIn(home, "Documents");
  std::error_code error;
  return fs::is_directory(systemPath(documents), error) ? documents : home;
}

std::string absoluteFolderOf(const std::string& path) {
  std::error_code error;
  const std::u8string folder = fs::absolute(systemPath(path), error).parent_path().u8string();
  return {folder.begin(), folder.end()};
}

bool makeFolder(const std::string& folder, std::ostream& log) {
  const fs::path path = systemPath(folder);
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (fs::exists(status)) {
    const bool isFolder = fs::is_directory(status);
    log << folder << (isFolder ? " exists" : " is no directory") << '\n';
    return isFolder;
  }
  const bool made = fs::create_directories(path, error);
  log << "CANNOT ACCESS: " << folder << '\n' << "CHECK: " << (made ? 1 : 0) << "\n\n";
  return made;
}

}  // namespace morvane
