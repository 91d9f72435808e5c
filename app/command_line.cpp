#include "app/command_line.h"

#include <cstddef>
#include <cstdio>

#include "base/debug_log.h"

namespace morvane {
namespace {

struct Option {
  const char* word;
  const char* answer;
};

constexpr Option kOptions[] = {
    {"--help",
     "usage: morvane-reader [FILE]\n"
     "Opens a window and shows FILE, a measurement (.res), in it.\n"
     "\n"
     "  --help     print this text\n"
     "  --version  print the version\n"},
    {"--version", "morvane-reader " MORVANE_VERSION "\n"},
};

/// Returns the exit status.
int answer(const std::string& word) {
  for (const Option& option : kOptions) {
    if (word != option.word) continue;
    logStream() << option.answer;
    return 0;
  }
  std::fprintf(stderr, "morvane-reader: unknown option %s; see morvane-reader --help\n",
               word.c_str());
  return 2;
}

}  // namespace

std::optional<int> answerOption(const std::vector<std::string>& words) {
  for (std::size_t i = 1; i < words.size(); ++i) {
    if (words[i].starts_with('-')) return answer(words[i]);
  }
  return std::nullopt;
}

}  // namespace morvane
