#include "app/paths.h"

#include <cstdlib>

namespace morvane {

const char kPathSeparator = '/';

std::string environmentText(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::string userProfileFolder() {
  const std::string profile = environmentText("USERPROFILE");
  return profile.empty() ? environmentText("HOME") : profile;
}

}  // namespace morvane
