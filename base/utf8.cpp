#include "base/utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace morvane {
namespace {

// The characters of the bytes 0x80 to 0x9F; 0 if undefined.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

/// The lead byte of a character of `length` bytes, and the smallest character that needs so many.
struct Utf8Form {
  std::uint8_t mask, lead;
  std::size_t length;
  char32_t least;
};
constexpr std::array<Utf8Form, 4> kUtf8Forms = {
    {{0x80, 0x00, 1, 0}, {0xE0, 0xC0, 2, 0x80}, {0xF0, 0xE0, 3, 0x800}, {0xF8, 0xF0, 4, 0x10000}}};

constexpr char32_t kReplacement = 0xFFFD;

bool isCharacter(char32_t value) { return value < 0xD800 || (value > 0xDFFF && value <= 0x10FFFF); }

/// Appends a character from 0x80 to 0xFFFF, the range of the upper bytes of Windows-1252.
void append(std::string& text, char32_t character) {
  const auto tail = [&](unsigned shift) {
    text += static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
  };
  if (character < 0x800) {
    text += static_cast<char>(0xC0U | (character >> 6U));
  } else {
    text += static_cast<char>(0xE0U | (character >> 12U));
    tail(6);
  }
  tail(0);
}

}  // namespace

std::optional<char32_t> takeCharacter(std::string_view& text) {
  const auto byteAt = [&text](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
  const auto* form = std::ranges::find_if(
      kUtf8Forms, [&](const Utf8Form& f) { return (byteAt(0) & f.mask) == f.lead; });
  std::size_t length = 1;
  std::optional<char32_t> character;
  if (form != kUtf8Forms.end() && form->length <= text.size()) {
    char32_t value = byteAt(0) & static_cast<std::uint8_t>(~form->mask);
    bool whole = true;
    for (std::size_t i = 1; i < form->length; ++i) {
      whole = whole && (byteAt(i) & 0xC0U) == 0x80U;
      value = (value << 6U) | (byteAt(i) & 0x3FU);
    }
    if (whole && value >= form->least) {
      length = form->length;
      character = isCharacter(value) ? value : kReplacement;
    }
  }
  text.remove_prefix(length);
  return character;
}

char32_t fromWindows1252(std::uint8_t byte) {
  if (byte < 0x80 || byte > 0x9F) return byte;
  const char16_t defined = kUpperControls[byte - 0x80U];
  return defined != 0 ? defined : byte;
}

std::string wellFormed(std::string_view text) {
  std::string formed;
  while (!text.empty()) {
    const std::string_view before = text;
    const auto character = takeCharacter(text);
    if (character && *character != kReplacement) {
      formed.append(before.substr(0, before.size() - text.size()));
    } else {
      append(formed,
             character.value_or(fromWindows1252(static_cast<std::uint8_t>(before.front()))));
    }
  }
  return formed;
}

}  // namespace morvane
