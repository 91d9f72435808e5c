#include "resfile/bitmap_scan.h"

#include <FL/filename.H>

#include <ostream>
#include <string_view>

#include "base/paths.h"

namespace morvane {
namespace {

std::string folderOfMeasurement(const std::string& path) {
  const auto separator = path.find_last_of(kPathSeparator);
  if (separator == std::string::npos) return ".";
  return path.substr(0, separator);
}

bool isBitmapName(std::string_view name) {
  constexpr std::string_view kEnding = ".bmp";
  return name.ends_with(kEnding);
}

}  // namespace

BitmapFolder scanBitmaps(const std::string& resPath, std::ostream& log) {
  BitmapFolder found{folderOfMeasurement(resPath), {}};
  log << "PATH TO FOLDER: " << found.folder << '\n';
  dirent** entries = nullptr;
  // A measurement in the top folder of a disk leaves an empty text before its separator.
  const std::string listed = found.folder.empty() ? std::string(1, kPathSeparator) : found.folder;
  const int count = fl_filename_list(listed.c_str(), &entries);
  for (int i = 0; i < count; ++i) {
    const std::string_view name = entries[i]->d_name;
    if (!isBitmapName(name)) continue;
    log << "Found Filename: " << name << '\n';
    found.names.emplace_back(name);
  }
  fl_filename_free_list(&entries, count);
  return found;
}

}  // namespace morvane
