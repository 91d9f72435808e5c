#include "export/win_ansi.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace morvane {
namespace {

constexpr char kLacking = '?';
constexpr char32_t kNotUtf8 = 0xFFFD;

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

/// Removes and returns the first character of `text`, or its first byte if that is not UTF-8.
char32_t takeCharacter(std::string_view& text) {
  const auto byteAt = [&text](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
  const auto* form = std::ranges::find_if(
      kUtf8Forms, [&](const Utf8Form& f) { return (byteAt(0) & f.mask) == f.lead; });
  std::size_t length = 1;
  char32_t character = kNotUtf8;
  if (form != kUtf8Forms.end() && form->length <= text.size()) {
    char32_t value = byteAt(0) & static_cast<std::uint8_t>(~form->mask);
    bool whole = true;
    for (std::size_t i = 1; i < form->length; ++i) {
      whole = whole && (byteAt(i) & 0xC0U) == 0x80U;
      value = (value << 6U) | (byteAt(i) & 0x3FU);
    }
    if (whole && value >= form->least) {
      length = form->length;
      character = value;
    }
  }
  text.remove_prefix(length);
  return character;
}

char byteOf(char32_t character) {
  if ((character >= 0x20 && character < 0x7F) || (character >= 0xA0 && character <= 0xFF)) {
    return static_cast<char>(character);
  }
  const auto* place = std::ranges::find(kUpperControls, character);
  if (character == 0 || place == kUpperControls.end()) return kLacking;
  return static_cast<char>(0x80 + (place - kUpperControls.begin()));
}

}  // namespace

std::string winAnsiText(std::string_view utf8) {
  std::string bytes;
  while (!utf8.empty()) bytes += byteOf(takeCharacter(utf8));
  return bytes;
}

bool isStandardText(std::string_view bytes) {
  return std::ranges::all_of(bytes,
                             [](char c) { return c >= ' ' && c <= '~' && c != '\'' && c != '`'; });
}

}  // namespace morvane
