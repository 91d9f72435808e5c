// Texts in WinAnsi encoding, for the standard fonts of PDF.
#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// `utf8` with one byte per character (PDF 32000-1, annex D.2). Characters that the font lacks
/// become "?": other scripts, control characters, and each byte that is not UTF-8.
std::string winAnsiText(std::string_view utf8);

/// Whether the font's built-in encoding draws these bytes as WinAnsi does: ASCII except ' and `.
bool isStandardText(std::string_view bytes);

}  // namespace morvane
