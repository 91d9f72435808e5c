#include "app/paths.h"

namespace morvane {

std::string folderOf(std::string_view path) {
  return std::string(path.substr(0, path.find_last_of("/\\")));
}

std::string fileNameOf(std::string_view path) {
  const auto separator = path.find_last_of("/\\");
  return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

std::string resourcePath(std::string_view exeFolder, std::string_view subfolder,
                         std::string_view name) {
  std::string path(exeFolder);
  for (const std::string_view step : {std::string_view("resources"), subfolder, name}) {
    path += kPathSeparator;
    path += step;
  }
  return path;
}

}  // namespace morvane
