#include "base/paths.h"

#include <cstdlib>

#include "base/utf8_win32.h"

namespace morvane {

const char kPathSeparator = '\\';
const std::string_view kPathSeparators = "\\/";

std::string environmentText(const char* name) {
  const std::wstring wideName(name, name + std::char_traits<char>::length(name));
  const wchar_t* value = _wgetenv(wideName.c_str());
  return value != nullptr ? utf8Text(value) : std::string();
}

std::string userProfileFolder() { return environmentText("USERPROFILE"); }

}  // namespace morvane
