#include "resfile/bitmap_scan.h"

#include <FL/filename.H>

#include <ostream>
#include <string_view>

#include "base/paths.h"

namespace morvane {
namespace {

bool isBitmapName(std::string_view name) {
  constexpr std::string_view kEnding = ".bmp";
  return name.ends_with(kEnding);
}

}  // namespace

BitmapFolder scanBitmaps(const std::string& resPath, std::ostream& log) {
  // The trailing separator is needed for root folders: "C:" is not "C:\", and "" is not "/".
  std::string listed = folderPrefix(resPath);
  if (listed.empty()) listed = std::string(".") + kPathSeparator;
  BitmapFolder found{listed.substr(0, listed.size() - 1), {}};
  log << "PATH TO FOLDER: " << found.folder << '\n';
  dirent** entries = nullptr;
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
