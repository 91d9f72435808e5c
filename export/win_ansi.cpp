#include "export/win_ansi.h"

#include <algorithm>
#include <cstdint>

#include "base/utf8.h"

namespace morvane {
namespace {

constexpr char kLacking = '?';

char byteOf(char32_t character) {
  if ((character >= 0x20 && character < 0x7F) || (character >= 0xA0 && character <= 0xFF)) {
    return static_cast<char>(character);
  }
  for (std::uint8_t byte = 0x80; byte < 0xA0; ++byte) {
    if (character > 0xFF && fromWindows1252(byte) == character) return static_cast<char>(byte);
  }
  return kLacking;
}

}  // namespace

std::string winAnsiText(std::string_view utf8) {
  std::string bytes;
  while (!utf8.empty()) bytes += byteOf(takeCharacter(utf8).value_or(0));
  return bytes;
}

bool isStandardText(std::string_view bytes) {
  return std::ranges::all_of(bytes,
                             [](char c) { return c >= ' ' && c <= '~' && c != '\'' && c != '`'; });
}

}  // namespace morvane
