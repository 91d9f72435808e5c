#include <algorithm>
#include <cstring>
#include <limits>
#include <ostream>

#include "base/little_endian.h"
#include "resfile/res_header.h"

namespace morvane {
namespace {

constexpr std::size_t kAlgorithmTypeOffset = 176;
constexpr std::size_t kResultAreaOffset = 180;

void logDamage(std::ostream& log, std::string_view field, long long value) {
  log << "(resFile) - DAMAGED FIELD " << field << ": " << value << '\n';
}

void takeCommonFields(const std::byte* bytes, ResHeader& header) {
  header.numType = readLe<std::int32_t>(bytes + header_offset::kNumType);
  header.width = readLe<std::int32_t>(bytes + header_offset::kWidth);
  header.height = readLe<std::int32_t>(bytes + header_offset::kHeight);
  header.headerVersion = readLe<std::int32_t>(bytes + header_offset::kVersion);
  header.pixelSizeX = readLe<double>(bytes + 24);
  header.pixelSizeY = readLe<double>(bytes + 32);
  header.heightScale = readLe<double>(bytes + 56);
}

void logCommonFields(const ResHeader& header, std::ostream& log) {
  log << "Numtype: " << header.numType << '\n'
      << "Width: " << header.width << '\n'
      << "Height: " << header.height << '\n'
      << "Header Version: " << header.headerVersion << '\n'
      << "PixelSizeX: " << header.pixelSizeX << '\n'
      << "PixelSizeY: " << header.pixelSizeY << '\n';
}

/// One text of the header: a length byte at `offset`, then room for `room` characters.
struct TextField {
  std::string_view name;
  std::size_t offset;
  std::size_t room;
};

constexpr TextField kText1 = {"headerText1 length", 72, 15};
constexpr TextField kText2 = {"headerText2 length", 92, 15};
constexpr TextField kText3 = {"headerText3 length", 108, 63};

/// Copies a text up to its first zero and fills the rest of the length with zeros. Returns the
/// length that the length byte announces, at most the field's.
template <std::size_t N>
std::size_t takeText(const std::byte* bytes, const TextField& field, std::array<char, N>& target,
                     std::ostream& log) {
  // NOLINTNEXTLINE(bugprone-signed-char-misuse): the length is a signed byte
  const int announced = readLe<std::int8_t>(bytes + field.offset);
  const bool fits = announced >= 0 && static_cast<std::size_t>(announced) <= field.room;
  if (!fits) logDamage(log, field.name, announced);
  const std::size_t length = fits ? static_cast<std::size_t>(announced) : field.room;
  std::array<char, N> text{};
  std::memcpy(text.data(), bytes + field.offset + 1, length);
  const std::size_t used = std::min(length, fieldText(text).size());
  std::fill(std::copy_n(text.begin(), used, target.begin()),
            target.begin() + static_cast<std::ptrdiff_t>(length), '\0');
  return length;
}

void takeTexts(const std::byte* bytes, ResHeader& header, std::ostream& log) {
  header.headerText1[takeText(bytes, kText1, header.headerText1, log)] = '\0';
  // Kept: the zero that should terminate headerText2 is written to headerText3. So a short data
  // type shows the tail of an earlier, longer one.
  header.headerText3[takeText(bytes, kText2, header.headerText2, log)] = '\0';
  header.headerText3[takeText(bytes, kText3, header.headerText3, log)] = '\0';
}

void logDamagedSizes(const ResHeader& header, std::ostream& log) {
  if (header.width < 0) logDamage(log, "width", header.width);
  if (header.height < 0) logDamage(log, "height", header.height);
  const std::int64_t count = std::int64_t{header.width} * header.height;
  if (header.width >= 0 && count > std::numeric_limits<std::int32_t>::max()) {
    logDamage(log, "width x height", count);
  }
}

}  // namespace

void decodeHeader(const HeaderBytes& bytes, std::int32_t version, ResHeader& header,
                  ResResults& results, std::ostream& log) {
  const std::byte* data = bytes.data();
  takeCommonFields(data, header);
  if (version >= 3) {
    logCommonFields(header, log);
    takeTexts(data, header, log);
    header.headerValue = readLe<float>(data + 88);
    header.surfaceType = readLe<std::uint32_t>(data + 172);
  }
  if (version >= 4) {
    header.algorithmType = readLe<std::uint32_t>(data + kAlgorithmTypeOffset);
    decodeResults(header.algorithmType, data + kResultAreaOffset, results, log);
  } else if (version == 3) {
    decodeVersion3Results(data, results);
  }
  logDamagedSizes(header, log);
}

}  // namespace morvane
