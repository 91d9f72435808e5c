// How the project's command-line tools answer `--help` and a wrong call.
#pragma once

#include <cstdio>
#include <optional>
#include <string_view>

namespace morvane {

/// Says `use` when the first argument asks for it or when the call is not `valid`, and returns the
/// exit status for that; none when the program shall do its work.
inline std::optional<int> toldUse(int argc, char** argv, bool valid, const char* use) {
  const std::string_view first = argc > 1 ? argv[1] : "";
  const bool asked = first == "--help" || first == "-h";
  if (valid && !asked) return {};
  std::fprintf(asked ? stdout : stderr, "usage: %s\n", use);
  return asked ? 0 : 2;
}

}  // namespace morvane
