#include "batch/progress.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "base/paths.h"
#include "base/process.h"
#include "base/utf8.h"

namespace morvane {

ProgressLine progressLine(std::size_t number, std::size_t total, const std::string& file,
                          std::size_t columns) {
  const std::string whole =
      std::to_string(number) + " of " + std::to_string(total) + ' ' + fileNameOf(file);
  ProgressLine line;
  for (std::string_view rest = whole; !rest.empty();) {
    const std::string_view before = rest;
    const char32_t character = takeCharacter(rest).value_or(U'\0');
    const bool control = character < U' ' || (character >= 0x7F && character < 0xA0);
    // Letters of East Asia take two columns. They and all wider ones are behind the first of them.
    const std::size_t used = line.columns + (character < 0x1100 ? 1 : 2);
    // The last column stays free: some terminals begin a new line behind it.
    if (used >= columns) break;
    line.columns = used;
    line.text += control ? "?" : before.substr(0, before.size() - rest.size());
  }
  return line;
}

void Progress::next(const std::string& file) {
  ++number_;
  const std::size_t columns = total_ > 1 ? errorColumns() : 0;
  if (columns == 0) return;
  const ProgressLine line = progressLine(number_, total_, file, columns);
  used_ = std::min(used_, columns - 1);  // it may be narrower now
  erase();
  std::fputs(line.text.c_str(), stderr);
  std::fflush(stderr);
  used_ = line.columns;
}

void Progress::erase() {
  if (used_ > 0) std::fprintf(stderr, "\r%s\r", std::string(used_, ' ').c_str());
  std::fflush(stderr);
  used_ = 0;
}

}  // namespace morvane
