// The system's wide texts as UTF-8.
#pragma once

#include <string>

namespace morvane {

/// `wide` (ended by a zero) in UTF-8. A half of a surrogate pair becomes the replacement character.
std::string utf8Text(const wchar_t* wide);

}  // namespace morvane
