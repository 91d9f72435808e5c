// Texts as the bytes of a PDF standard font in WinAnsi encoding.
#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// `utf8` with one byte a character (PDF 32000-1, annex D.2). What the font lacks becomes "?":
/// other scripts, control characters and each byte that is not UTF-8.
std::string winAnsiText(std::string_view utf8);

/// Whether the font's own encoding draws these bytes as WinAnsi does: ASCII but for ' and `.
bool isStandardText(std::string_view bytes);

}  // namespace morvane
