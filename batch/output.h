// Where the command line writes: files and standard output.
#pragma once

#include <functional>
#include <string>

#include "base/byte_sink.h"

namespace morvane {

/// The path of the output for `input`: `pattern` with the input's name in place of each "{name}".
std::string outputPath(std::string pattern, const std::string& input);

/// Why `writeOutput` would not write, as far as can be told before; else an empty text.
[[nodiscard]] std::string outputTrouble(const std::string& path, const std::string& input,
                                        bool force);

/// Writes what `writer` makes to `path`, or to standard output for "-". A file appears only when it
/// is complete. One that exists is replaced only if `force` is set, and never the file `input`.
/// Returns an empty text on success, else the reason.
[[nodiscard]] std::string writeOutput(const std::string& path, const std::string& input, bool force,
                                      const std::function<void(ByteSink&)>& writer);

}  // namespace morvane
