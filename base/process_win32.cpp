#include <io.h>
#include <windows.h>

// shellapi.h needs the declarations of windows.h.
#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "base/process.h"
#include "base/utf8_win32.h"

namespace morvane {
namespace {

struct LocalMemory {
  void operator()(wchar_t** words) const { LocalFree(words); }
};

/// Whether a stream is connected to a file, a pipe or a console. A program of the GUI subsystem
/// that is started from a console or the desktop has no connected streams.
bool isConnected(DWORD stream) {
  HANDLE handle = GetStdHandle(stream);
  return handle != nullptr && handle != INVALID_HANDLE_VALUE &&
         GetFileType(handle) != FILE_TYPE_UNKNOWN;
}

UINT codePageBefore = 0;

/// Connects unconnected streams to the console of the parent process, if it has one.
void borrowConsole() {
  const bool hasOutput = isConnected(STD_OUTPUT_HANDLE);
  const bool hasErrors = isConnected(STD_ERROR_HANDLE);
  if (hasOutput && hasErrors) return;
  // ERROR_ACCESS_DENIED means that the process is attached to a console already.
  if (AttachConsole(ATTACH_PARENT_PROCESS) == 0 && GetLastError() != ERROR_ACCESS_DENIED) return;
  if (!hasOutput) (void)std::freopen("CONOUT$", "w", stdout);
  if (!hasErrors) (void)std::freopen("CONOUT$", "w", stderr);
  // The console outlives the program, so its code page is restored at exit.
  codePageBefore = GetConsoleOutputCP();
  if (SetConsoleOutputCP(CP_UTF8) != 0) std::atexit([] { SetConsoleOutputCP(codePageBefore); });
}

}  // namespace

std::vector<std::string> commandLine(int argc, char** argv) {
  int count = 0;
  const std::unique_ptr<wchar_t*, LocalMemory> words(CommandLineToArgvW(GetCommandLineW(), &count));
  if (!words) return {argv, argv + argc};
  std::vector<std::string> texts;
  for (int i = 0; i < count; ++i) texts.push_back(utf8Text(words.get()[i]));
  return texts;
}

void openStandardStreams(bool /*mayWait*/) {
  borrowConsole();
  // The Windows C library has no line buffering: it would hold lines back until its buffer is full.
  std::setvbuf(stdout, nullptr, _IONBF, 0);
}

std::size_t writeOutput(std::string_view text) {
  return std::fwrite(text.data(), 1, text.size(), stdout);
}

std::size_t errorColumns() {
  const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stderr)));
  CONSOLE_SCREEN_BUFFER_INFO screen;
  if (GetConsoleScreenBufferInfo(handle, &screen) == 0) return 0;
  return static_cast<std::size_t>(std::max<int>(screen.dwSize.X, 1));
}

}  // namespace morvane
