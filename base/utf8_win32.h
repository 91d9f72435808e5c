// UTF-16 texts of Windows as UTF-8.
#pragma once

#include <string>

namespace morvane {

/// Converts the zero-terminated `wide` to UTF-8. An unpaired surrogate becomes the replacement
/// character.
std::string utf8Text(const wchar_t* wide);

}  // namespace morvane
