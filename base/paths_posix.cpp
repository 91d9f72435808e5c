#include "base/paths.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace morvane {

const char kPathSeparator = '/';
const std::string_view kPathSeparators = "/";

std::string environmentText(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::string userProfileFolder() {
  std::string profile = environmentText("USERPROFILE");
  if (!profile.empty()) return profile;
  std::string home = environmentText("HOME");
  if (!home.empty()) return home;
  // Neither variable is set: ask the user database.
  const passwd* user = getpwuid(getuid());
  return user != nullptr ? user->pw_dir : "";
}

}  // namespace morvane
