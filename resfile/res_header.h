// The decoded header of a measurement file.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>

#include "resfile/res_results.h"

namespace morvane {

/// Every version of the format begins with a header of this many bytes.
inline constexpr std::size_t kHeaderBytes = 256;
using HeaderBytes = std::array<std::byte, kHeaderBytes>;

/// Where the fields that are read or replaced by themselves are in these bytes.
namespace header_offset {
inline constexpr std::size_t kNumType = 0;
inline constexpr std::size_t kWidth = 4;
inline constexpr std::size_t kHeight = 8;
inline constexpr std::size_t kVersion = 20;
}  // namespace header_offset

/// Element types of the grid in a file.
inline constexpr std::int32_t kNumTypeDoubles = -7;
inline constexpr std::int32_t kNumTypeCounts16 = -2;

/// The header fields. Fields that an older version lacks keep the values of an earlier read.
struct ResHeader {
  std::int32_t numType = 0;            ///< element type of the grid in the file
  std::int32_t width = 0;              ///< grid columns
  std::int32_t height = 0;             ///< grid rows
  std::int32_t headerVersion = 0;      ///< format version
  double pixelSizeX = 0.0;             ///< pitch of the columns, mm
  double pixelSizeY = 0.0;             ///< pitch of the rows, mm
  double heightScale = 0.0;            ///< height of one count of a 16-bit grid value, µm
  std::array<char, 16> headerText1{};  ///< time stamp, 14 digits: year, month, day, h, min, s
  std::array<char, 16> headerText2{};  ///< data type
  std::array<char, 64> headerText3{};  ///< part name
  float headerValue = 0.0F;            ///< stored only; not used
  std::uint32_t surfaceType = 0;       ///< 1 reflective, 2 and 3 dull, else not applicable
  std::uint32_t algorithmType = 0;     ///< which result record the file carries
};

/// The text in a header field: its bytes up to the first zero, at most the whole field.
template <std::size_t N>
std::string_view fieldText(const std::array<char, N>& field) {
  const std::string_view whole(field.data(), N);
  return whole.substr(0, whole.find('\0'));
}

/// Decodes the 256 bytes of a header of the given `version` into `header` and `results` and logs
/// the fields. An impossible size or text length is logged with its value.
void decodeHeader(const HeaderBytes& bytes, std::int32_t version, ResHeader& header,
                  ResResults& results, std::ostream& log);

}  // namespace morvane
