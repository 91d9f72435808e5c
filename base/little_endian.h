// Reading and writing single values of fixed-layout little-endian records.
#pragma once

#include <bit>
#include <cstddef>
#include <cstring>

namespace morvane {

static_assert(std::endian::native == std::endian::little,
              "records are copied as they stand; a big-endian machine would need a swap here");

/// Reads a value of type `T` at `bytes`, which need not be aligned.
template <typename T>
T readLe(const std::byte* bytes) {
  T value;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

/// Writes `value` at `bytes`, which need not be aligned.
template <typename T>
void writeLe(std::byte* bytes, T value) {
  std::memcpy(bytes, &value, sizeof value);
}

}  // namespace morvane
