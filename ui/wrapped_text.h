// Text wrapped by its width in FLTK's current font.
#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// `text` with newlines inserted so that no line is wider than `width` pixels in FLTK's current
/// font. Lines break after a blank or a path separator if possible, else anywhere.
std::string wrappedText(std::string_view text, int width);

}  // namespace morvane
