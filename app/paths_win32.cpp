#include "app/paths.h"

#include <windows.h>

namespace morvane {

const char kPathSeparator = '\\';

std::string environmentText(const char* name) {
  const std::wstring wideName(name, name + std::char_traits<char>::length(name));
  const wchar_t* value = _wgetenv(wideName.c_str());
  if (value == nullptr) return {};
  const int length = WideCharToMultiByte(CP_UTF8, 0, value, -1, nullptr, 0, nullptr, nullptr);
  std::string text(length > 0 ? static_cast<std::size_t>(length) : 1, '\0');
  if (length > 0) {
    WideCharToMultiByte(CP_UTF8, 0, value, -1, text.data(), length, nullptr, nullptr);
  }
  text.pop_back();
  return text;
}

std::string userProfileFolder() { return environmentText("USERPROFILE"); }

}  // namespace morvane
