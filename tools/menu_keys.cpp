#include "tools/menu_keys.h"

#include <algorithm>
#include <utility>

namespace morvane {
namespace {

std::string plain(std::string path) {
  std::erase(path, '&');
  return path;
}

/// Where an entry or submenu is in its menu, from 1. 0 if it is not there.
std::size_t placeOf(const std::vector<std::string>& paths, const std::string& entry) {
  const std::string menu = entry.substr(0, entry.rfind('/') + 1);
  std::vector<std::string> entries;
  for (const std::string& each : paths) {
    std::string path = plain(each);
    if (!path.starts_with(menu)) continue;
    path.resize(std::min(path.size(), path.find('/', menu.size())));
    if (entries.empty() || entries.back() != path) entries.push_back(path);
    if (path == entry) return entries.size();
  }
  return 0;
}

}  // namespace

std::vector<std::vector<std::string>> menuKeys(const std::vector<std::string>& paths,
                                               const std::string& entry) {
  const std::string title = entry.substr(0, entry.find('/')) + '/';
  const auto first = std::ranges::find_if(
      paths, [&](const std::string& path) { return plain(path).starts_with(title); });
  if (first == paths.end()) return {};
  std::vector<std::vector<std::string>> groups = {
      {"alt+" + first->substr(first->find('&') + 1, 1)}};
  std::vector<std::string> keys;
  for (std::size_t slash = title.size() - 1; slash != std::string::npos;) {
    slash = entry.find('/', slash + 1);
    const std::size_t place = placeOf(paths, entry.substr(0, slash));
    if (place == 0) return {};
    keys.insert(keys.end(), place - keys.size(), "Down");
    groups.push_back(std::exchange(keys, {"Right"}));  // into the submenu, to its first entry
  }
  groups.back().emplace_back("Return");
  return groups;
}

}  // namespace morvane
