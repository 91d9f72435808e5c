#include "base/user_locale.h"

#include <windows.h>

#include <array>
#include <string_view>

namespace morvane {

char userDecimalSign() {
  std::array<wchar_t, 8> sign{};
  GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, sign.data(), sign.size());
  return std::wstring_view(sign.data()) == L"," ? ',' : '.';
}

}  // namespace morvane
