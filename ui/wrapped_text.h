// Text cut into lines by what the toolkit draws it with.
#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// `text` with line ends put in so that no line is wider than `width` pixels in the toolkit's
/// present font: behind a blank or a path separator where the line has one, else anywhere.
std::string wrappedText(std::string_view text, int width);

}  // namespace morvane
