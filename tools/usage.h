// The usage message of the project's command-line tools.
#pragma once

#include <cstdio>
#include <optional>
#include <string_view>

namespace morvane {

/// Prints `use` when the first argument asks for help or the call is not `valid`, and returns the
/// exit status. Returns nothing when the tool should run.
inline std::optional<int> toldUse(int argc, char** argv, bool valid, const char* use) {
  const std::string_view first = argc > 1 ? argv[1] : "";
  const bool asked = first == "--help" || first == "-h";
  if (valid && !asked) return {};
  std::fprintf(asked ? stdout : stderr, "usage: %s\n", use);
  return asked ? 0 : 2;
}

}  // namespace morvane
