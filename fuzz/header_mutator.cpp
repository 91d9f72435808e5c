#include "fuzz/header_mutator.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <limits>

// libFuzzer's own changes to plain bytes.
// NOLINTNEXTLINE(readability-identifier-naming): the name is libFuzzer's.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size,
                                        std::size_t mostBytes);

namespace morvane {
namespace {

using Double = std::numeric_limits<double>;
using Float = std::numeric_limits<float>;

// clang-format off
// Sizes, codes, versions and depths that mean something, and the edges of the integer types. The
// product of 46340 and 46341 is the last below 2^31.
constexpr std::int64_t kIntegers[] = {
    -7, -2, -1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 24, 32, 40, 54, 63,
    64, 127, 128, 255, 256, 1078, 32767, 32768, 46340, 46341, -128, -129, 65535, 65536, 1 << 28,
    1 << 29, INT32_MAX - 1, INT32_MAX, INT32_MIN, UINT32_MAX};

constexpr double kNumbers[] = {
    0.0, -0.0, 1.0, -1.0, 0.02, 0.8, 1e-6, 1e6, 1e9, 1e-30, -1e30, 1e39, -1e300,
    Float::max(), Float::lowest(), Float::min(), Float::denorm_min(), Double::max(),
    Double::lowest(), Double::denorm_min(), Double::infinity(), -Double::infinity(),
    Double::quiet_NaN()};
// clang-format on

template <typename T>
void put(FileBytes& file, std::size_t offset, T value) {
  if (offset + sizeof value <= file.size()) std::memcpy(&file[offset], &value, sizeof value);
}

void putNumber(FileBytes& file, const HeaderField& field, double value) {
  if (field.bytes == sizeof(double)) put(file, field.offset, value);
  if (field.bytes == sizeof(float)) put(file, field.offset, static_cast<float>(value));
}

void spoilField(FileBytes& file, const HeaderField& field, Dice& dice) {
  const bool otherKind = roll(dice, 16) == 0;
  if (field.isFloat != otherKind) {
    putNumber(file, field, kNumbers[roll(dice, std::size(kNumbers))]);
  } else {
    putInteger(file, field, kIntegers[roll(dice, std::size(kIntegers))]);
  }
}

void spoilBody(const FileLayout& layout, FileBytes& file, Dice& dice) {
  if (file.size() < layout.headerBytes + layout.bodyElement) return;
  const std::size_t elements = (file.size() - layout.headerBytes) / layout.bodyElement;
  const std::size_t offset = layout.headerBytes + roll(dice, elements) * layout.bodyElement;
  spoilField(file, {offset, layout.bodyElement, layout.bodyElement == sizeof(double)}, dice);
}

void changeBytes(FileBytes& file, std::size_t mostBytes) {
  const std::size_t size = file.size();
  file.resize(mostBytes);
  file.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(file.data()), size, mostBytes));
}

}  // namespace

std::size_t roll(Dice& dice, std::size_t end) {
  return std::uniform_int_distribution<std::size_t>(0, end - 1)(dice);
}

void putInteger(FileBytes& file, const HeaderField& field, std::int64_t value) {
  if (field.offset + field.bytes <= file.size()) {
    std::memcpy(&file[field.offset], &value, field.bytes);
  }
}

void resizeBody(FileBytes& file, std::size_t begin, std::size_t bytes) {
  const std::size_t had = file.size() > begin ? file.size() - begin : 0;
  file.resize(begin + bytes);
  for (std::size_t i = had; had > 0 && i < bytes; ++i) file[begin + i] = file[begin + i - had];
}

std::size_t mutate(const FileLayout& layout, std::uint8_t* data, std::size_t size,
                   std::size_t mostBytes, unsigned seed) {
  Dice dice(seed);
  FileBytes file(mostBytes);
  std::copy_n(reinterpret_cast<const std::byte*>(data), size, file.begin());
  file.resize(size);
  for (std::size_t changes = 1 + roll(dice, 3); changes > 0; --changes) {
    const std::size_t kind = roll(dice, 8);
    if (kind < 3) changeBytes(file, mostBytes);
    if (kind >= 3 && kind < 6) {
      spoilField(file, layout.fields[roll(dice, layout.fields.size())], dice);
    }
    if (kind == 6) spoilBody(layout, file, dice);
    if (kind == 7) layout.fit(layout, file, dice);
    if (file.size() > mostBytes) file.resize(mostBytes);
  }
  std::copy(file.begin(), file.end(), reinterpret_cast<std::byte*>(data));
  return file.size();
}

}  // namespace morvane
