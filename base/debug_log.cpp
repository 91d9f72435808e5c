#include "base/debug_log.h"

#include <iostream>

namespace morvane {

void DebugLog::write(std::string_view /*file*/, std::string_view text) {
  std::cout << text;
  if (!text.ends_with('\n')) std::cout << '\n';
}

}  // namespace morvane
