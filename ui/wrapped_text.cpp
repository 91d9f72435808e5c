#include "ui/wrapped_text.h"

#include <FL/fl_draw.H>
#include <FL/fl_utf8.h>

#include <algorithm>

namespace morvane {

std::string wrappedText(std::string_view text, int width) {
  std::string done;
  std::string line;
  while (!text.empty()) {
    const auto length = static_cast<std::size_t>(std::max(1, fl_utf8len1(text.front())));
    const std::string_view letter = text.substr(0, length);
    text.remove_prefix(letter.size());
    line += letter;
    if (letter != "\n" && fl_width(line.c_str()) <= width) continue;
    if (letter != "\n") {
      const std::size_t before = line.size() - letter.size();
      const std::size_t gap = line.find_last_of(" /\\", before - std::min<std::size_t>(before, 1));
      line.insert(gap < before ? gap + 1 : before, 1, '\n');
    }
    const std::size_t end = line.find('\n') + 1;
    done += line.substr(0, end);
    line.erase(0, end);
  }
  return done + line;
}

}  // namespace morvane
