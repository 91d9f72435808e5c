// Writes its path, its argument and MORVANE_MENU, a line each in UTF-8, to the file that the
// environment variable STAND_IN_REPORT names.
#include <windows.h>
// Needs the declarations of windows.h.
#include <shellapi.h>

#include <cstdio>
#include <string>

namespace {

std::string utf8(const std::wstring& wide) {
  const int wideLength = static_cast<int>(wide.size());
  const int length =
      WideCharToMultiByte(CP_UTF8, 0, wide.data(), wideLength, nullptr, 0, nullptr, nullptr);
  std::string text(static_cast<std::size_t>(length), '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), wideLength, text.data(), length, nullptr, nullptr);
  return text;
}

std::wstring variable(const wchar_t* name) {
  std::wstring value(32767, L'\0');
  value.resize(
      GetEnvironmentVariableW(name, value.data(), static_cast<unsigned long>(value.size())));
  return value;
}

}  // namespace

int main() {
  int count = 0;
  wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::FILE* report = _wfopen(variable(L"STAND_IN_REPORT").c_str(), L"wb");
  if (words == nullptr || report == nullptr) return 1;
  std::fprintf(report, "program=%s\nargument=%s\nmenu=%s\n", utf8(words[0]).c_str(),
               count > 1 ? utf8(words[1]).c_str() : "", utf8(variable(L"MORVANE_MENU")).c_str());
  const bool written = std::fclose(report) == 0;
  LocalFree(words);
  return written ? 0 : 1;
}
