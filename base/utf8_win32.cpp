#include "base/utf8_win32.h"

#include <windows.h>

namespace morvane {

std::string utf8Text(const wchar_t* wide) {
  const int length = WideCharToMultiByte(CP_UTF8, 0, wide, -1, nullptr, 0, nullptr, nullptr);
  std::string text(length > 0 ? static_cast<std::size_t>(length) : 1, '\0');
  if (length > 0) {
    WideCharToMultiByte(CP_UTF8, 0, wide, -1, text.data(), length, nullptr, nullptr);
  }
  text.pop_back();
  return text;
}

}  // namespace morvane
