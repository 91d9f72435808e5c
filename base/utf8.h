// Texts in UTF-8, and bytes that are not.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace morvane {

/// Removes and returns the first character of `text`, which must not be empty: U+FFFD for the
/// sequence of a number that is no character. If its first byte begins no sequence, removes that
/// byte and returns nothing.
std::optional<char32_t> takeCharacter(std::string_view& text);

/// The character of a byte in Windows-1252. Undefined bytes are control characters.
char32_t fromWindows1252(std::uint8_t byte);

/// `text` with every byte that is not UTF-8 converted from Windows-1252. The result is valid UTF-8.
std::string wellFormed(std::string_view text);

}  // namespace morvane
