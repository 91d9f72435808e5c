// The command line and the log of a program without a console, as seen by the one that started it.
#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace morvane {
namespace {

struct HandleCloser {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<HANDLE, HandleCloser>;

constexpr wchar_t kArguments[] =
    L"\"Z:\\Messung \u00e4\u00f6\\T\u00fcr \u6e2c.res\" plain \"a \\\"quoted\\\" word\" \"\"";
const std::vector<std::string> kWords = {
    "Z:\\Messung \xc3\xa4\xc3\xb6\\T\xc3\xbcr \xe6\xb8\xac.res", "plain", "a \"quoted\" word", ""};

std::wstring sayWords() {
  std::array<wchar_t, MAX_PATH> self{};
  GetModuleFileNameW(nullptr, self.data(), MAX_PATH);
  std::wstring path(self.data());
  return path.substr(0, path.find_last_of(L'\\') + 1) + MORVANE_SAY_WORDS;
}

struct Pipe {
  Handle read;
  Handle write;
};

/// A pipe. The child inherits only one end of it.
Pipe makePipe(bool childReads) {
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  HANDLE read = nullptr;
  HANDLE write = nullptr;
  EXPECT_NE(CreatePipe(&read, &write, &inherited, 0), 0);
  SetHandleInformation(childReads ? write : read, HANDLE_FLAG_INHERIT, 0);
  return {Handle(read), Handle(write)};
}

Handle start(HANDLE input, HANDLE output, DWORD flags = 0) {
  std::wstring line = L"\"" + sayWords() + L"\" " + kArguments;
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = input;
  startup.hStdOutput = output;
  PROCESS_INFORMATION process{};
  EXPECT_NE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, flags, nullptr, nullptr,
                           &startup, &process),
            0);
  CloseHandle(process.hThread);
  return Handle(process.hProcess);
}

DWORD exitCodeOf(const Handle& process) {
  DWORD code = STILL_ACTIVE;
  EXPECT_EQ(WaitForSingleObject(process.get(), 20'000), WAIT_OBJECT_0);
  GetExitCodeProcess(process.get(), &code);
  return code;
}

/// The first `count` lines from a pipe, without line ends. Waits for each.
std::vector<std::string> linesFrom(HANDLE pipe, std::size_t count) {
  std::vector<std::string> lines(1);
  char c = 0;
  DWORD got = 0;
  while (lines.size() <= count && ReadFile(pipe, &c, 1, &got, nullptr) != 0 && got == 1) {
    if (c == '\n') {
      lines.emplace_back();
    } else if (c != '\r') {
      lines.back() += c;
    }
  }
  lines.pop_back();
  return lines;
}

TEST(Process, KeepsEveryLetterAndWritesEachLineAtOnce) {
  Pipe input = makePipe(true);
  Pipe output = makePipe(false);
  const Handle process = start(input.read.get(), output.write.get());
  // The child runs until its input ends, so it still runs when these lines come.
  std::vector<std::string> words = linesFrom(output.read.get(), kWords.size() + 1);
  EXPECT_EQ(WaitForSingleObject(process.get(), 0), WAIT_TIMEOUT);
  ASSERT_EQ(words.size(), kWords.size() + 1);
  EXPECT_TRUE(words[0].ends_with("say_words.exe")) << words[0];
  words.erase(words.begin());
  EXPECT_EQ(words, kWords);
  input.write.reset();
  EXPECT_EQ(exitCodeOf(process), 0U);
}

TEST(Process, RunsWithNobodyToReadItsLog) {
  Pipe input = makePipe(true);
  const Handle process = start(input.read.get(), nullptr, DETACHED_PROCESS);
  input.write.reset();
  EXPECT_EQ(exitCodeOf(process), 0U);
}

}  // namespace
}  // namespace morvane
